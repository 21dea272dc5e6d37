#include "support/SampleData.h"

#include <cctype>
#include <charconv>
#include <optional>

#include "zones/Defaults.h"
#include "zones/zones.h"

namespace sample {

using namespace platform;

namespace {

// Reads one line of a registry file from left to right.
class LineReader {
public:
    explicit LineReader(std::string_view line) : rest_(line) {}
    bool take(std::string_view word) {
        if (!rest_.starts_with(word)) return false;
        rest_.remove_prefix(word.size());
        return true;
    }
    // A quoted text with \\ and \" in it.
    std::optional<std::string> quoted() {
        if (!take("\"")) return {};
        std::string text;
        while (!rest_.empty() && !take("\"")) {
            if (rest_.starts_with('\\') && rest_.size() > 1) rest_.remove_prefix(1);
            text.push_back(rest_[0]);
            rest_.remove_prefix(1);
        }
        return text;
    }
    std::optional<std::uint32_t> hexadecimal() {
        std::uint32_t number = 0;
        const auto parsed = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number, 16);
        if (parsed.ec != std::errc{}) return {};
        rest_.remove_prefix(static_cast<std::size_t>(parsed.ptr - rest_.data()));
        return number;
    }

private:
    std::string_view rest_;
};

// The next line, with what a backslash at its end continues.
std::string takeLine(std::string_view& text) {
    std::string line;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view part = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        while (!part.empty() && std::isspace(static_cast<unsigned char>(part.back()))) part.remove_suffix(1);
        if (!line.empty())
            while (part.starts_with(' ')) part.remove_prefix(1);
        line += part;
        if (!line.starts_with('"') || !line.ends_with(",\\")) break;
        line.pop_back();
    }
    return line;
}

bool readValue(const std::string& line, Entry& entry) {
    LineReader reader(line);
    const std::optional<std::string> name = reader.take("@") ? std::string() : reader.quoted();
    if (!name || !reader.take("=")) return false;
    entry.name = *name;
    if (reader.take("dword:")) {
        const auto number = reader.hexadecimal();
        if (number) entry = dword(entry.path, *name, *number);
        return number.has_value();
    }
    if (const auto data = reader.quoted()) {
        entry = text(entry.path, *name, *data);
        return true;
    }
    if (!reader.take("hex")) return false;
    entry.type = RegBinary;
    if (reader.take("(")) entry.type = reader.hexadecimal().value_or(RegBinary), reader.take(")");
    if (!reader.take(":")) return false;
    while (const auto byte = reader.hexadecimal()) {
        entry.data.push_back(static_cast<std::uint8_t>(*byte));
        if (!reader.take(",")) break;
    }
    return true;
}

constexpr const char* Browser =
#include "browser.reg.inc"
    ;

}  // namespace

Entry text(std::string path, std::string name, std::string_view text) {
    Entry entry{std::move(path), std::move(name), RegSz, {}};
    entry.data.assign(text.begin(), text.end());
    entry.data.push_back(0);
    return entry;
}

Entry dword(std::string path, std::string name, std::uint32_t number) {
    Entry entry{std::move(path), std::move(name), RegDword, {}};
    for (int byte = 0; byte < 4; ++byte, number >>= 8) entry.data.push_back(static_cast<std::uint8_t>(number));
    return entry;
}

std::vector<Entry> readRegistryFile(std::string_view text) {
    std::vector<Entry> entries;
    if (takeLine(text) != "REGEDIT4") return entries;
    std::string path;
    while (!text.empty()) {
        const std::string line = takeLine(text);
        Entry entry;
        if (line.starts_with('[') && line.ends_with(']')) {
            path = line.substr(1, line.size() - 2);
            entries.push_back({path, {}, Entry::NoValue, {}});
        }
        entry.path = path;
        if (!path.empty() && readValue(line, entry)) entries.push_back(std::move(entry));
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
    for (const zones::BuiltInZone& zone : zones::BuiltInZones) {
        const bool computer = &zone == &zones::BuiltInZones[0];
        const zones::Defaults& defaults = zones::defaultsOf(zone.zone);
        const std::string path = std::string(zones::ZonesKey) + "\\" + zone.zone;
        entries.push_back(text(path, "", ""));
        entries.push_back(text(path, "DisplayName", zone.name));
        entries.push_back(text(path, "Description", zone.description));
        entries.push_back(text(path, "Icon", std::string(zone.iconFile) + "#" + zone.iconResource));
        entries.push_back(dword(path, "CurrentLevel", computer ? 0 : defaults.recommendedLevel));
        if (!computer) {  // which has no levels to fall below or to return to
            entries.push_back(dword(path, "MinLevel", defaults.minimumLevel));
            entries.push_back(dword(path, "RecommendedLevel", defaults.recommendedLevel));
        }
        entries.push_back(dword(path, "Flags", defaults.flags));
        const std::string level =
            std::string("\\TemplatePolicies\\") + zones::Levels[*zones::levelIndex(defaults.recommendedLevel)].name;
        for (const Entry& setting : browser)
            if (setting.path.ends_with(level) && setting.name[0] == '1')
                entries.push_back({path, setting.name, setting.type, setting.data});
    }
    return entries;
}

}  // namespace sample
