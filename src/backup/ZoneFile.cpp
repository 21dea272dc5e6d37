// Writing.
#include "backup/ZoneFile.h"

#include <cstdint>

#include "backup/BackupFile.h"
#include "forms/ZoneList.h"
#include "zones/zones.h"

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

ZoneFields readZone(forms::Context& context, const std::string& zone) {
    zones::goToZone(context.registry, zone);
    ZoneFields fields;
    fields[Icon] =
        icons::referenceOrDefault(context.platform, context.registry.readText(Sources[Icon].value).text).text();
    for (std::size_t field = Name; field < FieldCount; ++field)
        fields[field] = fieldText(context.registry, Sources[field]);
    return fields;
}

}  // namespace

void writeZones(forms::Context& context, const std::string& baseName, const std::string& description) {
    BackupFile file(context.platform, context.registry, baseName + ".tvf");
    file.line(std::string(DescriptionMark) + description);

    zones::goToZones(context.registry);
    if (const auto keys = context.registry.DirKey()) {
        for (const std::string& zone : *keys) {
            file.line(joined(readZone(context, zone)));
            file.endOfZone();
        }
    }
    file.close();
}

}  // namespace backup
