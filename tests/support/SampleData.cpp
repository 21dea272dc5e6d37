#include "support/SampleData.h"

#include <sstream>

namespace sample {

using namespace platform;

namespace {

// Takes a quoted text, in which a backslash stands before quotes and backslashes, from the front.
std::string takeQuoted(std::string_view& rest) {
    std::string text;
    for (rest.remove_prefix(1); !rest.empty() && rest[0] != '"'; rest.remove_prefix(1)) {
        if (rest[0] == '\\' && rest.size() > 1) rest.remove_prefix(1);
        text.push_back(rest[0]);
    }
    if (!rest.empty()) rest.remove_prefix(1);
    return text;
}

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
    std::vector<Entry> entries;
    std::istringstream lines{std::string(text)};
    std::string path;
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) line.pop_back();
        std::string_view rest = line;
        if (rest.starts_with('[') && rest.ends_with(']')) {
            path = rest.substr(1, rest.size() - 2);
            entries.push_back({path, {}, Entry::NoValue, {}});
        }
        if (!rest.starts_with('@') && !rest.starts_with('"')) continue;
        const std::string name = rest[0] == '"' ? takeQuoted(rest) : (rest.remove_prefix(1), "");
        if (rest.starts_with("=dword:"))
            entries.push_back(
                dword(path, name, static_cast<std::uint32_t>(std::stoul(line.substr(line.size() - 8), {}, 16))));
        if (rest.starts_with("=\"")) {
            rest.remove_prefix(1);
            entries.push_back(sample::text(path, name, takeQuoted(rest)));
        }
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
