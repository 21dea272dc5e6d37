// Characters of texts: where each ends, their case, and blanks.
//
// In the code pages of Japan, China and Korea a character may take two bytes, and the second may be that of a letter,
// of
// "\" or of "|". Whoever looks for one of these asks here.
#pragma once

#include <string>
#include <string_view>

#include "platform/System.h"

namespace util {

// Asks the system which bytes begin a character of two; until then none does.
void readLeadBytes(platform::System& system);

// Where the character after the one at `at` begins.
std::size_t afterCharacter(std::string_view text, std::size_t at);
// Where `what` begins with a character of the text, from `from` on; npos where it does not.
std::size_t find(std::string_view text, std::string_view what, std::size_t from = 0);
// The last character that is one of `which`; npos without one.
std::size_t findLast(std::string_view text, std::string_view which);
bool endsWithBackslash(std::string_view text);

// Only the letters A to Z change: what bytes above 127 stand for depends on the code page.
std::string lower(std::string_view text);
std::string upper(std::string_view text);
// Negative, zero or positive as `a` stands before, with or behind `b`, ignoring the case of the letters A to Z.
int compareFolded(std::string_view a, std::string_view b);
bool equalFolded(std::string_view a, std::string_view b);

// Without the blanks at both ends.
std::string_view trimmed(std::string_view text);

}  // namespace util
