// Small helpers around paths, files and folders.
#pragma once

#include <string>

#include "platform/Platform.h"

namespace basSystem {

// Without a backslash behind, but for the root of a drive.
std::string GetWinDir(platform::Platform& platform);
std::string GetSystemDir(platform::Platform& platform);

// A folder is no file. A trailing backslash does not matter to FolderExists.
bool FileExists(platform::Platform& platform, const std::string& path);
bool FolderExists(platform::Platform& platform, const std::string& path);

// With exactly the path's own backslash behind it, or one added; "" stays "".
std::string QualifyPath(const std::string& path);
// Without a backslash behind. "C:\" stays: "C:" is another place.
std::string UnQualifyPath(const std::string& path);

// The running program's own file.
std::string ProgramFile(platform::Platform& platform);

// The text before the first NUL.
std::string TrimNull(const std::string& text);

}  // namespace basSystem
