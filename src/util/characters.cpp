#include "util/characters.h"

#include <algorithm>

namespace util {

namespace {

bool isLead[256], anyLead = false;

// Changes the letters from `first` on, of which there are 26, by `difference`.
std::string changed(std::string_view text, char first, int difference) {
    std::string result(text);
    for (std::size_t at = 0; at < result.size(); at = afterCharacter(result, at))
        if (static_cast<unsigned char>(result[at] - first) < 26)
            result[at] = static_cast<char>(result[at] + difference);
    return result;
}

}  // namespace

void readLeadBytes(platform::System& system) {
    anyLead = false;
    for (int byte = 0; byte < 256; ++byte)
        anyLead |= isLead[byte] = system.IsDBCSLeadByte(static_cast<std::uint8_t>(byte));
}

std::size_t afterCharacter(std::string_view text, std::size_t at) {
    return at + (isLead[static_cast<unsigned char>(text[at])] && at + 1 < text.size() ? 2 : 1);
}

std::size_t find(std::string_view text, std::string_view what, std::size_t from) {
    // The library searches many bytes at a time, and rarely finds a second byte.
    for (auto found = text.find(what, from); found != text.npos; found = text.find(what, from)) {
        while (anyLead && from < found) from = afterCharacter(text, from);
        if (!anyLead || from == found) return found;
    }
    return text.npos;
}

std::size_t findLast(std::string_view text, std::string_view which) {
    std::size_t last = text.npos;
    for (std::size_t at = 0; at < text.size(); at = afterCharacter(text, at))
        if (which.find(text[at]) != which.npos) last = at;
    return last;
}

bool endsWithBackslash(std::string_view text) {
    return text.ends_with('\\') && findLast(text, "\\") == text.size() - 1;
}

std::string lower(std::string_view text) {
    return changed(text, 'A', 'a' - 'A');
}

std::string upper(std::string_view text) {
    return changed(text, 'a', 'A' - 'a');
}

int compareFolded(std::string_view a, std::string_view b) {
    const auto folded = [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 'A' && byte <= 'Z' ? byte + ('a' - 'A') : byte;
    };
    const std::size_t common = std::min(a.size(), b.size());
    bool second = false;  // of a character of two bytes, whose like is no letter
    for (std::size_t at = 0; at < common; ++at) {
        const int x = second ? static_cast<unsigned char>(a[at]) : folded(a[at]);
        const int y = second ? static_cast<unsigned char>(b[at]) : folded(b[at]);
        if (x != y) return x - y;
        second = !second && isLead[static_cast<unsigned char>(a[at])];
    }
    return a.size() < b.size() ? -1 : a.size() > b.size();
}

bool equalFolded(std::string_view a, std::string_view b) {
    return a.size() == b.size() && compareFolded(a, b) == 0;
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace util
