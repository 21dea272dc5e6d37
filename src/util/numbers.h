// Numbers in text, independent of any locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace util {

// The whole number that `text` is: digits, with grouping commas ("0,000,000,219") and blanks around them. Nothing for
// any other text and for numbers above 4,294,967,295.
std::optional<std::uint32_t> wholeNumber(std::string_view text);

std::string toDecimal(std::uint32_t number);
std::string toSignedDecimal(std::uint32_t number);

// With zeros in front up to `width` digits (32 at most); letters of base 16 are small.
std::string toDigits(std::uint32_t number, int width, int base = 10);

}  // namespace util
