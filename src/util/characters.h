// Characters of texts: their case, and blanks.
#pragma once

#include <string>
#include <string_view>

namespace util {

// Only the letters A to Z change: what bytes above 127 stand for depends on the code page.
std::string lower(std::string_view text);
std::string upper(std::string_view text);
// Equal, ignoring the case of the letters A to Z.
bool equalFolded(std::string_view a, std::string_view b);

// Without the blanks at both ends.
std::string_view trimmed(std::string_view text);

}  // namespace util
