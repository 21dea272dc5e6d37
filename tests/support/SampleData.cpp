#include "support/SampleData.h"

#include <cctype>
#include <charconv>
#include <optional>

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

struct ZoneData {
    const char *name, *description, *icon;
    std::uint32_t flags, level, minimum, recommended;
};
constexpr ZoneData Zones[] = {
    {"My Computer", "Your computer", "explorer.exe#0100", 0x21, 0, 0, 0},
    {"Local intranet", "This zone contains all Web sites that are on your organization's intranet.", "shell32.dll#0018",
     0xDB, 0x10500, 0x10000, 0x10500},
    {"Trusted sites", "This zone contains Web sites that you trust not to damage your computer or data.",
     "inetcpl.cpl#00004480", 0x47, 0x10000, 0x10000, 0x10000},
    {"Internet", "This zone contains all Web sites you haven't placed in other zones", "inetcpl.cpl#001313", 0x01,
     0x11000, 0x11000, 0x11000},
    {"Restricted sites", "This zone contains Web sites that could potentially damage your computer or data.",
     "inetcpl.cpl#00004481", 0x03, 0x12000, 0x12000, 0x12000},
};

struct ActionData {
    const char* name;
    std::uint32_t settings[5];  // by zone
};
constexpr ActionData Actions[] = {
    {"1001", {0, 1, 0, 1, 3}},
    {"1004", {0, 3, 1, 3, 3}},
    {"1200", {0, 0, 0, 0, 3}},
    {"1201", {1, 3, 1, 3, 3}},
    {"1400", {0, 0, 0, 0, 3}},
    {"1402", {0, 0, 0, 0, 3}},
    {"1405", {0, 0, 0, 0, 3}},
    {"1406", {0, 1, 0, 3, 3}},
    {"1407", {0, 0, 0, 0, 3}},
    {"1601", {0, 0, 0, 1, 1}},
    {"1604", {0, 0, 0, 0, 1}},
    {"1605", {0, 0, 0, 0, 0}},
    {"1606", {0, 0, 0, 0, 3}},
    {"1607", {0, 0, 0, 0, 3}},
    {"1800", {0, 1, 0, 1, 3}},
    {"1802", {0, 0, 0, 0, 1}},
    {"1803", {0, 0, 0, 0, 3}},
    {"1804", {0, 1, 0, 1, 3}},
    {"1805", {0, 0, 0, 1, 1}},
    {"1A00", {0, 0x20000, 0, 0x20000, 0x10000}},
    {"1A02", {0, 0, 0, 0, 3}},
    {"1A03", {0, 0, 0, 0, 3}},
    {"1A04", {0, 0, 0, 3, 3}},
    {"1C00", {0x20000, 0x20000, 0x30000, 0x10000, 0}},
    {"1E05", {0x30000, 0x20000, 0x30000, 0x20000, 0x10000}},
};

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

std::vector<Entry> builtInZones() {
    std::vector<Entry> entries;
    for (std::size_t zone = 0; zone < std::size(Zones); ++zone) {
        const ZoneData& data = Zones[zone];
        std::string path = zones::ZonesKey;
        path += "\\" + std::to_string(zone);
        entries.push_back(text(path, "", ""));
        entries.push_back(text(path, "DisplayName", data.name));
        entries.push_back(text(path, "Description", data.description));
        entries.push_back(text(path, "Icon", data.icon));
        entries.push_back(dword(path, "CurrentLevel", data.level));
        if (data.minimum != 0) {  // My Computer has no levels to fall below or to return to
            entries.push_back(dword(path, "MinLevel", data.minimum));
            entries.push_back(dword(path, "RecommendedLevel", data.recommended));
        }
        entries.push_back(dword(path, "Flags", data.flags));
        for (const ActionData& action : Actions) entries.push_back(dword(path, action.name, action.settings[zone]));
    }
    return entries;
}

}  // namespace sample
