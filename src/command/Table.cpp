#include "command/Table.h"

#include <algorithm>

namespace command {

namespace {

std::string quoted(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string result = "\"";
    for (const char c : text) result.append(c == '"' ? 2 : 1, c);
    return result + "\"";
}

}  // namespace

std::string oneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }, ' ');
    return text;
}

std::string Table::inColumns(util::FunctionRef<std::size_t(std::string_view text)> width) const {
    std::vector<std::size_t> widths(headings.size());
    const auto widen = [&](const std::vector<std::string>& row) {
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], width(row[i]));
    };
    widen(headings);
    for (const auto& row : rows) widen(row);
    std::string text;
    const auto add = [&](const std::vector<std::string>& row) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += oneLine(row[i]);
            line.append(widths[i] - width(row[i]) + 2, ' ');
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

std::string Table::inGroups() const {
    std::string text, group;
    for (const auto& row : rows) {
        if (row[0] != group || text.empty()) text += (text.empty() ? "" : "\n") + oneLine(row[0]) + "\n";
        group = row[0];
        text += oneLine("  " + row[1] + ": " + row[2]) + "\n";
    }
    return text;
}

}  // namespace command
