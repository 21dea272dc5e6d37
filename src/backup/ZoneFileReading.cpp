// What reads a zone backup: text alone, nothing of a system.
#include <algorithm>
#include <cstdint>

#include "backup/ZoneFile.h"
#include "util/clsStrings.h"

namespace backup {

std::string joined(const ZoneFields& fields) {
    std::string line = fields[0];
    for (std::size_t field = 1; field < FieldCount; ++field) line.append(1, ';').append(fields[field]);
    return line;
}

std::vector<std::string> splitLines(std::string_view bytes) {
    std::vector<std::string> lines;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find_first_of("\r\n");
        lines.emplace_back(bytes.substr(0, end));
        if (end == std::string_view::npos) break;
        bytes.remove_prefix(end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1));
    }
    return lines;
}

std::string descriptionOf(std::string_view firstLine) {
    return std::string(firstLine.substr(std::min(DescriptionMark.size(), firstLine.size())));
}

void readZoneLine(clsStrings& strings, const std::string& line, ZoneFields& fields) {
    const std::int32_t count = strings.Initialise(line, ";");
    if (count != 3 && count != FieldCount) return;
    for (std::int32_t field = 0; field < count; ++field)
        fields[static_cast<std::size_t>(field)] = strings.ElementAsString(field + 1);
}

}  // namespace backup
