// Characters of texts: their case, and blanks.
#pragma once

#include <string>
#include <string_view>

namespace util {

// Letters of the alphabet alone change their case: what bytes above 127 stand for depends on the code page.
std::string lower(std::string_view text);
std::string upper(std::string_view text);
// Equal but for the case of the alphabet's letters.
bool equalFolded(std::string_view a, std::string_view b);

// Without the blanks at both ends.
std::string_view trimmed(std::string_view text);

}  // namespace util
