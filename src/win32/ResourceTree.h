// A look at a program file's resource directory before the system walks it.
//
// The system follows the directory's offsets without asking whether they stay inside the file, and a damaged file takes
// the program down with it.
#pragma once

#include <cstdint>
#include <span>

namespace win32 {

// Whether the directory of a file that is mapped as it lies on the disk can be walked: all its levels and names inside
// the file. A file without resources can. What the entries' data is worth is another question, asked for each.
bool resourcesCanBeWalked(std::span<const std::uint8_t> file);

}  // namespace win32
