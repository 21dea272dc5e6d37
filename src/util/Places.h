// Where things stand in a list, by name. One type of map for all of the program: each further one is code of its own.
#pragma once

#include <cstddef>
#include <map>
#include <string>

namespace util {

using Places = std::map<std::string, std::size_t>;

}  // namespace util
