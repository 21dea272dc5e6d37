// Rows of texts on their way to the output: in columns for people, or as comma-separated values (RFC 4180).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "util/FunctionRef.h"

namespace command {

struct Table {
    std::vector<std::string> headings;
    std::vector<std::vector<std::string>> rows;  // as many texts as headings

    std::string inColumns(util::FunctionRef<std::size_t(std::string_view text)> width) const;
    std::string asCsv() const;
    // Of rows of three: a group's name, below it its rows.
    std::string inGroups() const;
};

// A text of others as people may be shown it: a line break would tear its line apart, and a terminal obeys others of
// the control characters.
std::string oneLine(std::string text);

}  // namespace command
