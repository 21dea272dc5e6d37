// The parts of a file's path, and whether the file is there.
#pragma once

#include <string>

#include "platform/Platform.h"

class clsFileInfo {
public:
    clsFileInfo(platform::Platform& platform, std::string path);

    const std::string& Path() const { return path_; }
    std::string Folder() const;     // with its backslash, "" when the path has none
    std::string Name() const;       // "inetcpl.cpl"
    std::string BaseName() const;   // "inetcpl"
    std::string Extension() const;  // "cpl", as it is spelled; "" when there is none
    // Asks the file system each time. Folders are not files.
    bool Exists() const;

private:
    platform::Platform& platform_;
    std::string path_;
    std::size_t name_;   // where the name begins
    std::size_t point_;  // where the extension's dot is, or the end
};
