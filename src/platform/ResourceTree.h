// A look at a program file's resource directory before the system walks it.
//
// The system follows the directory's offsets without asking whether they stay inside the file, and a damaged file takes
// the program down with it.
#pragma once

#include "platform/bytes.h"

namespace platform {

// How a program file is in memory: as it is on the disk, or with its sections at the addresses they run at.
enum class Mapping { Flat, Loaded };

// Whether the directory can be walked: all its levels and names inside the file. A file without resources can. What the
// entries' data is worth is another question, asked for each.
bool resourcesCanBeWalked(ByteSpan file, Mapping mapping);

}  // namespace platform
