// Rows of texts on their way to the output: in columns for people, or as comma-separated values (RFC 4180).
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace command {

struct Table {
    std::vector<std::string> headings;
    std::vector<std::vector<std::string>> rows;  // as many texts as headings

    std::string inColumns() const;
    std::string asCsv() const;
};

}  // namespace command
