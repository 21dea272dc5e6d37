// Splits a line into elements at delimiters that do not stand between double quotes, and replaces text.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class clsStrings {
public:
    // Splits `text` at every character of `delimiters` outside double quotes and gives the number of elements, at
    // least 1. Throws util::Error 0x80040064 where a character follows a closing quote.
    std::int32_t InitialiseVar(const std::string& text, const std::string& delimiters);
    std::int32_t Initialise(const std::string& text, const std::string& delimiters);

    // Element `index` (from 1) of the last split, quotes and all; "" for an index below 1 or above the count.
    std::string ElementAsString(std::int32_t index) const;

    // Every occurrence of `find`, left to right, not overlapping; the replacement is not searched again.
    std::string Replace(const std::string& text, const std::string& find, const std::string& replaceWith) const;

private:
    void SplitPlain(const std::string& delimiters);
    void SplitQuoted(const std::string& delimiters);

    std::string text_;
    std::vector<std::int32_t> boundaries_;  // [0] is 0, then the delimiters' 1-based positions, then length + 1
    std::int32_t count_ = 0;
};
