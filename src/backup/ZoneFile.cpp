#include "backup/ZoneFile.h"

#include <algorithm>
#include <cstdint>

#include "app/ZoneList.h"
#include "backup/BackupFile.h"
#include "util/clsStrings.h"

namespace backup {

namespace {

constexpr std::string_view DescriptionMark = "Desc=";

struct FieldSource {
    const char* value;
    ValueType type;
};
constexpr std::array<FieldSource, FieldCount> Sources{{
    {"Icon", ValueType::String},
    {"DisplayName", ValueType::String},
    {"Description", ValueType::String},
    {"CurrentLevel", ValueType::Dword},
    {"MinLevel", ValueType::Dword},
    {"RecommendedLevel", ValueType::Dword},
    {"Flags", ValueType::Dword},
}};

// "" for a value that is missing, or is no number where one belongs.
std::string fieldText(clsRegistry& registry, const FieldSource& source) {
    ValueType type = ValueType::String;
    const auto value = registry.ValueOf(source.value, type);
    if (!value) return {};
    if (source.type == ValueType::String) return value->text;
    return type == ValueType::Dword ? value->display : std::string();
}

ZoneFields readZone(Program& program, const std::string& zone) {
    zones::goToZone(program.registry, zone);
    ZoneFields fields;
    fields[Icon] = zoneIconOf(program, program.registry.ValueOf(Sources[Icon].value)).reference;
    for (std::size_t field = Name; field < FieldCount; ++field)
        fields[field] = fieldText(program.registry, Sources[field]);
    return fields;
}

}  // namespace

std::string joined(const ZoneFields& fields) {
    std::string line = fields[0];
    for (std::size_t field = 1; field < FieldCount; ++field) line.append(1, ';').append(fields[field]);
    return line;
}

void writeZones(Program& program, const std::string& baseName, const std::string& description) {
    BackupFile file(program.platform, baseName + ".tvf");
    file.line(std::string(DescriptionMark) + description);

    zones::goToZones(program.registry);
    if (const auto keys = program.registry.DirKey()) {
        for (const std::string& zone : *keys) {
            file.line(joined(readZone(program, zone)));
            file.endOfZone();
        }
    }
    file.close();
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
