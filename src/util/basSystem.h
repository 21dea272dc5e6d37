// Small helpers around paths, files and folders.
#pragma once

#include <string>

#include "platform/Platform.h"

namespace basSystem {

// Without a trailing backslash, but for the root of a drive.
std::string GetWinDir(platform::Platform& platform);
std::string GetSystemDir(platform::Platform& platform);

// A folder is not a file. A trailing backslash does not matter to FolderExists.
bool FileExists(platform::Platform& platform, const std::string& path);
bool FolderExists(platform::Platform& platform, const std::string& path);

// Whether there is certainly nothing of that name: a file whose attributes cannot be read counts as present.
bool IsMissing(platform::Platform& platform, const std::string& path);

// Makes a folder unless it exists, one level deep. AlreadyExists when a file has that name.
platform::Result MakeFolder(platform::Platform& platform, const std::string& path);

// With exactly one trailing backslash; "" stays "".
std::string QualifyPath(const std::string& path);
// Without a trailing backslash. "C:\" keeps it: "C:" is another place.
std::string UnQualifyPath(const std::string& path);

// The running program's own file.
std::string ProgramFile(platform::Platform& platform);

// The text before the first NUL.
std::string TrimNull(const std::string& text);

}  // namespace basSystem
