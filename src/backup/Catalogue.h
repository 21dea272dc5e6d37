// The backups that there are.
#pragma once

#include <string>

#include "platform/Platform.h"
#include "util/FunctionRef.h"

namespace backup {

inline constexpr const char* ZoneFiles = "*.tvf";

// A zone file in a folder.
struct Listed {
    std::string name;  // without folder
    std::string path;
    platform::LocalTime written;
};

// Calls `visit` for each zone file that matches, in the order in which the system finds them. `folder` ends in a
// backslash.
void forEachBackup(platform::Platform& platform, const std::string& folder, const std::string& pattern,
                   util::FunctionRef<void(const Listed& listed)> visit);

// The description of the backup in a zone file. Throws util::Error when it cannot be read.
std::string descriptionOfFile(platform::Platform& platform, const std::string& path);

}  // namespace backup
