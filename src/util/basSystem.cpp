#include "util/basSystem.h"

#include "util/characters.h"

namespace basSystem {

std::string GetWinDir(platform::Platform& platform) {
    return platform.system.GetWindowsDirectoryA();
}

std::string GetSystemDir(platform::Platform& platform) {
    return platform.system.GetSystemDirectoryA();
}

bool FileExists(platform::Platform& platform, const std::string& path) {
    std::uint32_t bits = 0;
    return platform.files.attributes(path, bits) == platform::Success && !(bits & platform::FileAttributeDirectory);
}

bool FolderExists(platform::Platform& platform, const std::string& path) {
    std::uint32_t bits = 0;
    return platform.files.attributes(UnQualifyPath(path), bits) == platform::Success &&
           (bits & platform::FileAttributeDirectory);
}

bool IsMissing(platform::Platform& platform, const std::string& path) {
    std::uint32_t bits = 0;
    const platform::Result code = platform.files.attributes(path, bits);
    return code == platform::FileNotFound || code == platform::PathNotFound;
}

platform::Result MakeFolder(platform::Platform& platform, const std::string& path) {
    if (FolderExists(platform, path)) return platform::Success;
    const std::string folder = UnQualifyPath(path);
    const platform::Result code = platform.files.createFolder(folder);
    if (code != platform::AlreadyExists) return code;
    // Another program may have made it meanwhile. If its attributes cannot be read it is taken for a folder: writing
    // into it will show.
    return FileExists(platform, folder) ? code : platform::Success;
}

std::string QualifyPath(const std::string& path) {
    return path.empty() || util::endsWithBackslash(path) ? path : path + "\\";
}

std::string UnQualifyPath(const std::string& path) {
    if (!util::endsWithBackslash(path) || path.ends_with(":\\")) return path;
    return path.substr(0, path.size() - 1);
}

std::string ProgramFile(platform::Platform& platform) {
    return QualifyPath(platform.system.programFolder()) + platform.system.programName() + ".exe";
}

std::string TrimNull(const std::string& text) {
    return text.substr(0, text.find('\0'));
}

}  // namespace basSystem
