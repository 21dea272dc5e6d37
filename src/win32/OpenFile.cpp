#include "win32/OpenFile.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include <cderr.h>

#include "win32/Callbacks.h"
#include "win32/DelayLoaded.h"
#include "win32/Screen.h"
#include "win32/System.h"

namespace win32 {

namespace {

// The structure as it was first defined; a longer one is refused by old versions of the dialog.
constexpr DWORD FirstVersion = offsetof(OPENFILENAMEA, lpTemplateName) + sizeof(OPENFILENAMEA::lpTemplateName);

// Windows 2000 and ME show the bar of places to those who know of it.
bool hasPlacesBar() {
    OSVERSIONINFOA version = {};
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExA(&version) && (version.dwMajorVersion >= 5 || version.dwMinorVersion >= 90);
}

// The hook's window is a child of the dialog.
UINT_PTR CALLBACK hook(HWND window, UINT message, WPARAM, LPARAM l) {
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(l)->code == CDN_INITDONE) {
        const HWND dialog = GetParent(window);
        centre(dialog, GetWindow(dialog, GW_OWNER));
    }
    return 0;
}

}  // namespace

std::optional<std::string> openFile(const ui::OpenFileRequest& request, HWND owner) {
    const std::size_t nameAt = nameIn(request.start);
    const std::string folder = request.start.substr(0, nameAt), name = request.start.substr(nameAt);
    std::string filter = request.filter + "||";
    std::replace(filter.begin(), filter.end(), '|', '\0');
    std::array<char, 4096> path = {};

    OPENFILENAMEA dialog = {};
    dialog.lStructSize = hasPlacesBar() ? sizeof dialog : FirstVersion;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = filter.c_str();
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    dialog.lpstrTitle = request.title.c_str();
    dialog.lpstrDefExt = request.defaultExtension.empty() ? nullptr : request.defaultExtension.c_str();
    dialog.Flags =
        OFN_EXPLORER | OFN_ENABLEHOOK | OFN_ENABLESIZING | OFN_HIDEREADONLY | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST;
    dialog.lpfnHook = &hook;

    name.copy(path.data(), path.size() - 1);
    const auto open = delayLoaded<decltype(&GetOpenFileNameA)>("comdlg32.dll", "GetOpenFileNameA");
    const auto error = delayLoaded<decltype(&CommDlgExtendedError)>("comdlg32.dll", "CommDlgExtendedError");
    if (!open || !error) return std::nullopt;
    // What OFN_NOCHANGEDIR does for files that are saved alone.
    char current[MAX_PATH] = "";
    GetCurrentDirectoryA(sizeof current, current);
    bool chosen = open(&dialog) != FALSE;
    if (!chosen && error() == FNERR_INVALIDFILENAME) {
        // An invalid file name keeps the dialog from opening at all.
        path.fill('\0');
        chosen = open(&dialog) != FALSE;
    }
    SetCurrentDirectoryA(current);
    rethrowParked();
    return chosen ? std::optional<std::string>(path.data()) : std::nullopt;
}

}  // namespace win32
