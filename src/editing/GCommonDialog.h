// The program's file-open dialogs, ready to be shown.
#pragma once

#include <optional>
#include <string>

#include "platform/Platform.h"

namespace GCommonDialog {

// Browses for a program file with icons, from `iconFile` on, or from the Windows folder when that is empty. Full path;
// nothing when the user gave up.
std::optional<std::string> BrowseForIcons(platform::Platform& platform, const std::string& iconFile);

}  // namespace GCommonDialog
