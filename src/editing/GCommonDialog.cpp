#include "editing/GCommonDialog.h"

#include "editing/cCommonDialog.h"
#include "util/basSystem.h"

namespace GCommonDialog {

std::optional<std::string> BrowseForIcons(platform::Platform& platform, const std::string& iconFile) {
    cCommonDialog dialog(platform.desktop);
    dialog.Title("Browse for icons");
    dialog.Filter(
        "All Icon Files (*.dll;*.exe;*.ocx)|*.dll;*.exe;*.ocx|"
        "Dynamic Link Libraries (*.dll)|*.dll|"
        "Programs (*.exe)|*.exe|"
        "ActiveX Controls (*.ocx)|*.ocx");
    dialog.DefaultExt("DLL");
    dialog.Start(iconFile.empty() ? basSystem::QualifyPath(basSystem::GetWinDir(platform)) : iconFile);
    if (!dialog.ShowOpen()) return std::nullopt;
    return dialog.FileName();
}

}  // namespace GCommonDialog
