// What resources a program file has, as text. (The spelling of the name is historical.)
//
// Failures throw a util::Error with the program's name + ".cResource" as source and the system's own message in
// the text.
#pragma once

#include <string>
#include <vector>

#include "platform/Platform.h"

namespace basResouce {

enum ErrorNumber : std::uint32_t {
    NumberNoLibrary = 0x80040501,
    NumberEnumeration = 0x80040502,
};

// The name of each resource type in the file.
std::vector<std::string> GetResourceTypes(platform::Platform& platform, const std::string& fileName);
// The name of each resource of one type; "#" and the number for one that has no name.
std::vector<std::string> GetResourceNames(platform::Platform& platform, const std::string& fileName,
                                          const platform::ResourceId& type);

// The system's text for one of its codes, or the code itself where it has none.
std::string WinError(platform::Platform& platform, platform::Result code);

}  // namespace basResouce
