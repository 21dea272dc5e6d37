#include "support/SampleData.h"

#include <sstream>

#include "backup/RegistryExport.h"

namespace sample {

using namespace platform;

namespace {

constexpr const char* ZonesKey =
    "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Zones\\";

constexpr const char* Browser =
#include "browser.reg.inc"
    ;

}  // namespace

Entry text(std::string path, std::string name, std::string_view text) {
    return {std::move(path), std::move(name), RegSz, Bytes(text.begin(), text.end()) + std::uint8_t{0}};
}

Entry dword(std::string path, std::string name, std::uint32_t number) {
    Bytes data(4, 0);
    BufferWriter(data).write32(number);
    return {std::move(path), std::move(name), RegDword, data};
}

std::vector<Entry> readRegistryFile(std::string_view text) {
    using backup::RegistryExport;
    std::vector<Entry> entries;
    std::istringstream lines{std::string(text)};
    std::string path;
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) line.pop_back();
        const auto read = RegistryExport::asEditorsRead(line);
        if (read.kind == RegistryExport::Kind::Key) entries.push_back({path = read.key, {}, Entry::NoValue, {}});
        if (read.kind != RegistryExport::Kind::Value) continue;
        const backup::ExportedValue& value = read.value;
        entries.push_back(value.type == RegDword ? dword(path, value.name, value.number)
                                                 : sample::text(path, value.name, value.text));
    }
    return entries;
}

std::string_view browserFile() {
    return Browser;
}

// Each with the settings of the browser's level that it is at; My Computer with those of the lowest.
std::vector<Entry> builtInZones() {
    std::vector<Entry> entries;
    const std::vector<Entry> browser = readRegistryFile(Browser);
    for (const Zone& zone : Zones) {
        if (!zone.name) continue;
        const bool computer = &zone == Zones;
        const std::string path = ZonesKey + std::string(zone.number);
        for (const auto& [name, value] :
             {std::pair{"", ""}, {"DisplayName", zone.name}, {"Description", zone.description}, {"Icon", zone.icon}})
            entries.push_back(text(path, name, value));
        entries.push_back(dword(path, "CurrentLevel", computer ? 0 : zone.recommended));
        if (!computer) {  // which has no levels to fall below or to return to
            entries.push_back(dword(path, "MinLevel", zone.minimum));
            entries.push_back(dword(path, "RecommendedLevel", zone.recommended));
        }
        entries.push_back(dword(path, "Flags", zone.flags));
        const std::string level = std::string("\\TemplatePolicies\\") + zone.level;
        for (const Entry& setting : browser)
            if (setting.path.ends_with(level) && setting.name[0] == '1')
                entries.push_back({path, setting.name, setting.type, setting.data});
    }
    return entries;
}

}  // namespace sample
