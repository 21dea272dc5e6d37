#include "backup/ZonesExport.h"

#include <algorithm>

#include "util/Places.h"
#include "util/characters.h"
#include "util/numbers.h"
#include "zones/zones.h"

namespace backup {

namespace {

using Kind = RegistryExport::Kind;

bool startsWith(std::string_view text, std::string_view start) {
    return text.size() >= start.size() && util::equalFolded(text.substr(0, start.size()), start);
}

// The zone that a key is: "" for the zones key itself, nothing for any other key.
std::optional<std::string> zoneOf(std::string_view key) {
    const std::string_view zones = zones::ZonesKey;
    if (!startsWith(key, zones)) return std::nullopt;
    if (key.size() == zones.size()) return "";
    const std::string_view name = key.substr(zones.size() + 1);
    if (key[zones.size()] != '\\' || name.empty() || name.find('\\') != std::string_view::npos) return std::nullopt;
    return std::string(name);
}

// Of a line without "]", with which a file that was cut off may end.
bool beginsAllowedKey(std::string_view key) {
    const std::string_view zones = zones::ZonesKey;
    return startsWith(zones, key) || zoneOf(key) ||
           (key.size() == zones.size() + 1 && zoneOf(key.substr(0, zones.size())));
}

// What a registry editor would do with one line that must not be: the key that it would touch, or in which it would
// delete. A line of a text that merely stands in brackets names no key to it.
std::optional<std::string> forbiddenBy(std::string_view line, bool insideText, std::string_view currentKey) {
    const auto read = RegistryExport::asEditorsRead(line);
    if (read.kind == Kind::DeletedValue) return std::string(currentKey) + "\\" + read.value.name;
    if (read.kind == Kind::DeletedKey || read.kind == Kind::Key) {
        if (insideText && !startsWith(read.key, "HK")) return std::nullopt;
        if (read.kind == Kind::Key && zoneOf(read.key)) return std::nullopt;
        return std::string(read.key);
    }
    const std::size_t bracket = line.find_first_not_of(" \t");
    if (read.kind != Kind::Unknown || bracket == std::string_view::npos || line[bracket] != '[') return std::nullopt;
    const std::string_view key = line.substr(bracket + 1);
    if (insideText && !startsWith(key, "HK") && !startsWith(key, "-HK")) return std::nullopt;
    return beginsAllowedKey(key) ? std::nullopt : std::optional<std::string>(key);
}

// Puts the items of an export together, zone by zone.
class Collector {
public:
    void add(const RegistryExport::Item& item) {
        check(item);
        switch (item.kind) {
            case Kind::Key:
                begin(item);
                break;
            case Kind::Value:
                store(item);
                break;
            case Kind::EmptyLine:
                end(item.own);
                break;
            case Kind::DeletedKey:
            case Kind::DeletedValue:
            case Kind::Unknown:
                damaged_ = true;
                if (zone_) zone().whole = false;
                break;
        }
    }
    // A line of a text may look like a value that is there as well.
    void dropFalseAlarms() {
        for (std::size_t i = 0; i < result.zones.size(); ++i)
            std::erase_if(result.zones[i].misread,
                          [&](const std::string& name) { return valuePlaces_.contains(placeOf(i, name)); });
    }
    ZonesExport result;

private:
    static std::string placeOf(std::optional<std::size_t> zone, const std::string& value) {
        return (zone ? util::toDecimal(static_cast<std::uint32_t>(*zone)) : "") + "\\" + util::lower(value);
    }
    ExportedZone& zone() { return result.zones[*zone_]; }

    void check(const RegistryExport::Item& item) {
        const bool insideText = item.kind == Kind::Value;
        for (const std::string_view line : item.lines) {
            if (result.forbidden) return;
            result.forbidden = forbiddenBy(line, insideText, item.key);
        }
    }
    void begin(const RegistryExport::Item& item) {
        damaged_ = false;
        inZonesKey_ = false;
        zone_.reset();
        const auto name = zoneOf(item.key);
        if (!name) return;
        inZonesKey_ = name->empty();
        if (inZonesKey_) return;
        const auto [known, isNew] = places_.try_emplace(util::lower(*name), result.zones.size());
        if (isNew) result.zones.push_back({*name, {}, {}, false});
        zone_ = known->second;
        zone().whole = !item.own;
    }
    // This program ends every zone with an empty line: without it the rest may be missing.
    void end(bool own) {
        if (!own || !zone_) return;
        zone().whole = !damaged_;
        zone_.reset();
    }
    void store(const RegistryExport::Item& item) {
        if (!zone_ && !inZonesKey_) return;
        std::vector<ExportedValue>& values = zone_ ? zone().values : result.values;
        const auto [known, isNew] = valuePlaces_.try_emplace(placeOf(zone_, item.value.name), values.size());
        if (isNew)
            values.push_back(item.value);
        else
            values[known->second] = item.value;
        if (!zone_ || !item.own) return;
        for (const std::string_view line : item.lines) {
            const auto read = RegistryExport::asEditorsRead(line);
            if (read.kind == Kind::Value && !util::equalFolded(read.value.name, item.value.name))
                zone().misread.push_back(read.value.name);
        }
    }

    util::Places places_;              // of zones, by name
    util::Places valuePlaces_;         // of values, by zone and name
    std::optional<std::size_t> zone_;  // the one whose lines are being read
    bool inZonesKey_ = false;
    bool damaged_ = false;
};

}  // namespace

ZonesExport readZonesExport(std::string_view bytes) {
    RegistryExport source{std::string(bytes)};
    Collector collector;
    while (const auto item = source.next()) collector.add(*item);
    collector.dropFalseAlarms();
    return std::move(collector.result);
}

}  // namespace backup
