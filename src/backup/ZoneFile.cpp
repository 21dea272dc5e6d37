#include "backup/ZoneFile.h"

#include <algorithm>

#include "util/Error.h"
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

std::string firstLineOf(std::string_view bytes) {
    return std::string(bytes.substr(0, bytes.find_first_of("\r\n")));
}

std::string descriptionOf(std::string_view firstLine) {
    return std::string(firstLine.substr(std::min(DescriptionMark.size(), firstLine.size())));
}

std::int32_t splitFields(clsStrings& strings, const std::string& line) {
    try {
        return strings.Initialise(line, ";");
    } catch (const util::Error&) {
        strings.Initialise({}, ";");
        return 0;
    }
}

void readZoneLine(clsStrings& strings, const std::string& line, ZoneFields& fields) {
    const std::int32_t count = splitFields(strings, line);
    if (count != 3 && count != FieldCount) return;
    for (std::int32_t field = 0; field < count; ++field)
        fields[static_cast<std::size_t>(field)] = strings.ElementAsString(field + 1);
}

// A zone has at least six separators. Lines are put together until they have as many, but a zone of three fields stands
// alone when the next line is a zone by itself.
std::size_t countZones(const std::vector<std::string>& lines) {
    constexpr std::ptrdiff_t Separators = FieldCount - 1, OfThreeFields = 2;
    std::size_t most = 0, zones = 0;
    std::ptrdiff_t have = -1;  // separators of the zone begun, or none
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const std::ptrdiff_t here = std::count(lines[i].begin(), lines[i].end(), ';');
        if (lines[i].starts_with(DescriptionMark) && here < Separators) {
            most = std::max(most, zones + (have == OfThreeFields));
            zones = 0;
            have = -1;
            continue;
        }
        if (have == OfThreeFields && (here == Separators || here == OfThreeFields)) {
            ++zones;
            have = -1;
        }
        have = std::max<std::ptrdiff_t>(have, 0) + here;
        if (have < Separators) continue;
        ++zones;
        have = -1;
    }
    return std::max(most, zones + (have == OfThreeFields));
}

}  // namespace backup
