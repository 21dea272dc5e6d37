// The texts of registry errors, and the texts as which values are read and listed.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/Registry.h"

// An error of the session's own making.
struct ClassError {
    std::uint32_t number;
    std::string source, description;
};
ClassError classError(int number);

// What a registry function's failure is called.
const char* resultText(platform::Result code);

// Text data up to its first NUL; data stored without one is text as a whole.
std::string storedText(std::span<const std::uint8_t> data);
// "1 A0 FF"
std::string binaryText(std::span<const std::uint8_t> data);
// "000000db"
std::string hexadecimalText(std::uint32_t number);
// "000000db (0,000,000,219)"
std::string listedDWord(std::uint32_t number);
