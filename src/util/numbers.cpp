#include "util/numbers.h"

#include <cstdio>

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
    char text[16];
    std::snprintf(text, sizeof text, "%lu", static_cast<unsigned long>(number));
    return text;
}

std::string toSignedDecimal(std::uint32_t number) {
    char text[16];
    std::snprintf(text, sizeof text, "%ld", static_cast<long>(static_cast<std::int32_t>(number)));
    return text;
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace util
