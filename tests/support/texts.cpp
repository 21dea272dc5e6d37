#include "support/texts.h"

#include <algorithm>
#include <sstream>

namespace texts {

namespace {

constexpr const char* File =
#include "texts.txt.inc"
    ;

// Where the pattern has "{}" the text may have anything.
bool fits(std::string_view text, std::string_view pattern) {
    const std::size_t gap = pattern.find("{}");
    if (gap == pattern.npos) return text == pattern;
    if (!text.starts_with(pattern.substr(0, gap))) return false;
    for (std::size_t end = gap; end <= text.size(); ++end)
        if (fits(text.substr(end), pattern.substr(gap + 2))) return true;
    return false;
}

}  // namespace

std::set<std::string> linesOf(const std::string& form) {
    std::set<std::string> lines;
    std::istringstream file(File);
    for (std::string line; std::getline(file, line);) {
        for (auto at = line.find("\\n"); at != std::string::npos; at = line.find("\\n")) line.replace(at, 2, "\r\n");
        if (line.starts_with(form + " ")) lines.insert(line);
    }
    return lines;
}

// A message's line: message, its name in brackets, and the text in quotes.
std::string message(const std::string& nameAndParts) {
    std::istringstream parts(nameAndParts);
    std::string name;
    std::getline(parts, name, '|');
    for (const std::string& line : linesOf("message [" + name + "]")) {
        std::string text = line.substr(line.find('"') + 1);
        text.pop_back();
        for (std::string part; std::getline(parts, part, '|');) text.replace(text.find("{}"), 2, part);
        return text;
    }
    return nameAndParts;
}

bool isMessage(const std::string& text) {
    static const std::set<std::string> lines = linesOf("message");
    return std::ranges::any_of(lines, [&](const std::string& line) {
        return fits(text + '"', std::string_view(line).substr(line.find('"') + 1));
    });
}

}  // namespace texts
