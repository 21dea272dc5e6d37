// The system's file-open dialog.
#pragma once

#include <optional>
#include <string>

#include "ui/Desktop.h"
#include "win32/WindowsHeaders.h"

namespace win32 {

std::optional<std::string> openFile(const ui::OpenFileRequest& request, HWND owner);

}  // namespace win32
