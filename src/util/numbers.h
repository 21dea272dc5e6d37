// Numbers in text, independent of any locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace util {

// The whole number that `text` consists of: digits, perhaps with grouping commas ("0,000,000,219") and with blanks
// before and after them. Nothing for any other text and for numbers above 4,294,967,295.
std::optional<std::uint32_t> wholeNumber(std::string_view text);

std::string toDecimal(std::uint32_t number);
std::string toSignedDecimal(std::uint32_t number);

// With leading zeros up to `width` digits (32 at most); in base 16 the letters are lower case.
std::string toDigits(std::uint32_t number, int width, int base = 10);

}  // namespace util
