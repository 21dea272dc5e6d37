// Writing.
#include "backup/ZoneFile.h"

#include <cstdint>

#include "app/ZoneList.h"
#include "backup/BackupFile.h"

namespace backup {

namespace {

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

void writeZones(Program& program, const std::string& baseName, const std::string& description) {
    BackupFile file(program.platform, program.registry, baseName + ".tvf");
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

}  // namespace backup
