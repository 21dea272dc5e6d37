#include "util/numbers.h"

#include <algorithm>
#include <charconv>

#include "util/characters.h"

namespace util {

std::optional<std::uint32_t> wholeNumber(std::string_view text) {
    std::uint64_t number = 0;
    bool digits = false;
    for (const char c : trimmed(text)) {
        if (c == ',' && digits) continue;
        if (c < '0' || c > '9') return std::nullopt;
        digits = true;
        number = number * 10 + static_cast<std::uint64_t>(c - '0');
        if (number > 0xFFFFFFFF) return std::nullopt;
    }
    if (!digits) return std::nullopt;
    return static_cast<std::uint32_t>(number);
}

std::string toDecimal(std::uint32_t number) {
    return std::to_string(number);
}

std::string toSignedDecimal(std::uint32_t number) {
    return std::to_string(static_cast<std::int32_t>(number));
}

std::string toDigits(std::uint32_t number, int width, int base) {
    char digits[32];
    const auto length = static_cast<std::size_t>(std::to_chars(digits, std::end(digits), number, base).ptr - digits);
    const auto wanted = static_cast<std::size_t>(width);
    return std::string(wanted - std::min(wanted, length), '0').append(digits, length);
}

}  // namespace util
