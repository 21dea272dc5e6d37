// What kind of file icons are asked of.
#pragma once

#include <string>

#include "platform/Files.h"

namespace icons {

enum class FileKind {
    Program16,  // a program or library of the 16-bit Windows
    IconFile,   // ".ico"
    Other,      // any other, a 32-bit program too
};

FileKind kindOf(platform::Files& files, const std::string& path);

}  // namespace icons
