#include "native/Console.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace native {

namespace {

void append(std::string& text, char32_t c) {
    const auto byte = [&](char32_t bits) { text.push_back(static_cast<char>(bits)); };
    if (c < 0x80) return byte(c);
    if (c < 0x800) {
        byte(0xC0 | c >> 6);
    } else {
        if (c < 0x10000) {
            byte(0xE0 | c >> 12);
        } else {
            byte(0xF0 | c >> 18);
            byte(0x80 | (c >> 12 & 0x3F));
        }
        byte(0x80 | (c >> 6 & 0x3F));
    }
    byte(0x80 | (c & 0x3F));
}

// Code page 1252 differs from Latin-1 from 0x80 to 0x9F only; five of its bytes stand for nothing.
constexpr char16_t From80[] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                               0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                               0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

// Text editors put it before UTF-8.
constexpr std::string_view Mark = "\xEF\xBB\xBF";

// How many bytes follow the first one of a character; -1 for a byte that begins none.
int followers(unsigned char first) {
    if (first < 0x80) return 0;
    if (first >= 0xC2 && first < 0xE0) return 1;
    if (first >= 0xE0 && first < 0xF0) return 2;
    return first >= 0xF0 && first < 0xF5 ? 3 : -1;
}

bool isUtf8(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        int more = followers(static_cast<unsigned char>(bytes[i]));
        if (more < 0) return false;
        for (; more > 0; --more)
            if (++i == bytes.size() || (bytes[i] & 0xC0) != 0x80) return false;
    }
    return true;
}

}  // namespace

bool Console::print(std::string_view text) {
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
}

void Console::printError(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stderr);
}

// A character's first byte stands for it.
std::size_t Console::width(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

std::string Console::fromUtf16(std::u16string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        const bool high = c >= 0xD800 && c < 0xDC00;
        if (high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000)
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00u);
        else if (c >= 0xD800 && c < 0xE000)
            c = 0xFFFD;  // half a character
        append(result, c);
    }
    return result;
}

std::string Console::fromBytes(std::string_view bytes) {
    if (isUtf8(bytes)) return std::string(bytes.substr(bytes.starts_with(Mark) ? Mark.size() : 0));
    std::string result;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        append(result, byte >= 0x80 && byte < 0xA0 ? From80[byte - 0x80] : byte);
    }
    return result;
}

}  // namespace native
