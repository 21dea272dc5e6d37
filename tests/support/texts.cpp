#include "support/texts.h"

#include <algorithm>
#include <regex>
#include <sstream>

namespace texts {

namespace {

constexpr const char* File =
#include "texts.txt.inc"
    ;

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
    static const std::vector<std::regex> messages = [] {
        std::vector<std::regex> patterns;
        for (const std::string& line : linesOf("message")) {
            const std::size_t begin = line.find('"') + 1;
            const std::string pattern = std::regex_replace(line.substr(begin, line.size() - 1 - begin),
                                                           std::regex(R"([.*+?^${}()|[\]\\])"), R"(\$&)");
            patterns.emplace_back(std::regex_replace(pattern, std::regex(R"(\\\{\\\})"), "[^]*"));
        }
        return patterns;
    }();
    return std::ranges::any_of(messages, [&](const std::regex& pattern) { return std::regex_match(text, pattern); });
}

}  // namespace texts
