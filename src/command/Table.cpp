#include "command/Table.h"

#include <algorithm>

namespace command {

namespace {

// A line break in a name would tear its row apart.
std::string oneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n' || c == '\t'; }, ' ');
    return text;
}

std::string quoted(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string result = "\"";
    for (const char c : text) result.append(c == '"' ? 2 : 1, c);
    return result + "\"";
}

}  // namespace

std::string Table::inColumns() const {
    std::vector<std::size_t> widths(headings.size());
    const auto widen = [&](const std::vector<std::string>& row) {
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
    };
    widen(headings);
    for (const auto& row : rows) widen(row);
    std::string text;
    const auto add = [&](const std::vector<std::string>& row) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += oneLine(row[i]);
            line.append(widths[i] - row[i].size() + 2, ' ');
        }
        line.resize(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    };
    add(headings);
    for (const auto& row : rows) add(row);
    return text;
}

std::string Table::asCsv() const {
    std::string text;
    const auto add = [&](const std::vector<std::string>& row) {
        for (std::size_t i = 0; i < row.size(); ++i) text += (i == 0 ? "" : ",") + quoted(row[i]);
        text += "\n";
    };
    add(headings);
    for (const auto& row : rows) add(row);
    return text;
}

}  // namespace command
