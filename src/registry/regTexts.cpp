#include "registry/regTexts.h"

#include <algorithm>
#include <array>

#include "util/numbers.h"

namespace {

constexpr const char* Source = "TVMRRegistry";
constexpr const char* WriteSource = "TVMRRegistry [Let ValueOf]";

struct ClassErrorText {
    const char* source;
    const char* description;
};
constexpr std::array<ClassErrorText, 4> ClassErrors{{
    {Source, "No current Key."},
    {Source, "Invalid Key root."},
    {WriteSource, "Type passed doesn't match Value passed."},
    {WriteSource, "Type passed doesn't exist. Use STRING, DWORD or BINARY."},
}};

struct ResultText {
    platform::Result code;
    const char* text;
};
constexpr std::array<ResultText, 9> ResultTexts{{
    {2, "Key/Value does not exist."},
    {5, "Access to Registry Denied."},
    {14, "Out of memory."},
    {87, "Invalid Parameter."},
    {1009, "Corrupt Registry Database!"},
    {1010, "Key name is bad."},
    {1011, "Cannot Open Key."},
    {1012, "Cannot Read Key."},
    {1013, "Cannot Write Key."},
}};

}  // namespace

ClassError classError(int number) {
    if (number < 1 || number > static_cast<int>(ClassErrors.size())) {
        // Nine more than the number: such texts stand in old logs, and people search for them.
        return {0x800400FF, Source,
                "Undefined error number : " + util::toSignedDecimal(static_cast<std::uint32_t>(number) + 9)};
    }
    const ClassErrorText& error = ClassErrors[static_cast<std::size_t>(number - 1)];
    return {0x80040000 + static_cast<std::uint32_t>(number), error.source, error.description};
}

const char* resultText(platform::Result code) {
    const auto found =
        std::find_if(ResultTexts.begin(), ResultTexts.end(), [&](const ResultText& t) { return t.code == code; });
    return found == ResultTexts.end() ? "Undefined key error code!" : found->text;
}

std::string storedText(std::span<const std::uint8_t> data) {
    return {data.begin(), std::find(data.begin(), data.end(), std::uint8_t{0})};
}

std::string binaryText(std::span<const std::uint8_t> data) {
    constexpr const char* Digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(3 * data.size());
    for (const std::uint8_t byte : data) {
        if (!text.empty()) text += ' ';
        if (byte > 15) text += Digits[byte >> 4];
        text += Digits[byte & 15];
    }
    return text;
}

std::string hexadecimalText(std::uint32_t number) {
    return util::toDigits(number, 8, 16);
}

std::string listedDWord(std::uint32_t number) {
    std::string text = "00000000 (0,000,000,000)";
    for (std::uint32_t place = 8, rest = number; rest != 0; rest /= 16) text[--place] = "0123456789abcdef"[rest % 16];
    for (std::size_t place = text.size() - 1, rest = number; rest != 0; rest /= 10) {
        if (text[--place] == ',') --place;
        text[place] = static_cast<char>('0' + rest % 10);
    }
    return text;
}
