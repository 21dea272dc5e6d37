#include "backup/ZoneMending.h"

#include <algorithm>
#include <charconv>

#include "registry/regTexts.h"
#include "util/Error.h"
#include "util/characters.h"
#include "zones/zones.h"

namespace backup {

namespace {

using Values = std::vector<ListedValue>;

Values valuesHere(clsRegistry& registry) {
    return registry.DirValue().value_or(Values());
}

const ListedValue* find(const Values& values, const std::string& name) {
    const auto found =
        std::find_if(values.begin(), values.end(), [&](const auto& v) { return util::equalFolded(v.name, name); });
    return found == values.end() ? nullptr : &*found;
}

// The session lists texts without the blanks around them. Values that it cannot write only have to be there.
bool holds(const Values& values, const ExportedValue& wanted) {
    const ListedValue* value = find(values, wanted.name);
    if (!value) return false;
    if (!wanted.exact) return true;
    switch (wanted.type) {
        case platform::RegSz:
            return value->type == ValueType::String && value->text == util::trimmed(wanted.text);
        case platform::RegDword:
            return value->type == ValueType::Dword && value->number == wanted.number;
        case platform::RegBinary:
            return value->type == ValueType::Binary && value->text == binaryText(wanted.data);
        default:
            return true;
    }
}

void write(clsRegistry& registry, const ExportedValue& value) {
    switch (value.type) {
        case platform::RegSz:
            return registry.ValueOf(value.name, ValueType::String, value.text);
        case platform::RegDword:
            return registry.ValueOf(value.name, ValueType::Dword, static_cast<double>(value.number));
        case platform::RegBinary:
            return registry.ValueOf(value.name, ValueType::Binary, value.data);
        default:
            return;
    }
}

// "1 A0 FF"
platform::Bytes bytesOf(const std::string& text) {
    platform::Bytes bytes;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        std::uint8_t byte = 0;
        std::from_chars(text.data() + at, text.data() + end, byte, 16);
        bytes.push_back(byte);
        at = end + 1;
    }
    return bytes;
}

std::optional<ExportedValue> leftOut(const ListedValue& value) {
    ExportedValue kept;
    kept.name = value.name;
    if (value.type == ValueType::Binary) {
        kept.type = platform::RegBinary;
        kept.data = bytesOf(value.text);
        return kept;
    }
    if (value.type != ValueType::String || !value.name.empty() || value.text.empty()) return std::nullopt;
    kept.type = platform::RegSz;
    kept.text = value.text;
    return kept;
}

// Makes the zone when it is missing, the zones key as well, and goes to it. False when it cannot be entered.
bool enterZone(clsRegistry& registry, const std::string& zone) {
    if (zones::goToZone(registry, zone) == Found::Present) return true;
    const std::string path = zones::ZonesKey;
    const std::size_t root = path.find('\\');
    registry.goTo(path.substr(0, root));
    registry.MakeKey(path.substr(root + 1) + "\\" + zone);
    return zones::goToZone(registry, zone) == Found::Present;
}

}  // namespace

bool mendZone(clsRegistry& registry, const ExportedZone& zone, bool emptied) {
    if (!enterZone(registry, zone.name)) return false;
    Values there = valuesHere(registry);
    const auto missing = [&](const ExportedValue& value) { return !holds(there, value); };
    const bool mended = std::any_of(zone.values.begin(), zone.values.end(), missing);
    for (const ExportedValue& value : zone.values)
        if (missing(value)) write(registry, value);
    for (const std::string& name : zone.misread)
        if (emptied && find(there, name)) registry.DeleteValue(name);
    if (mended) there = valuesHere(registry);
    return std::none_of(zone.values.begin(), zone.values.end(), missing);
}

void mendZonesKey(clsRegistry& registry, const std::vector<ExportedValue>& values) {
    zones::goToZones(registry);
    const Values there = valuesHere(registry);
    for (const ExportedValue& value : values)
        if (!holds(there, value)) write(registry, value);
}

std::vector<ExportedZone> valuesLeftOut(clsRegistry& registry, const std::vector<std::string>& zones) {
    const clsRegistry::FailureWatch watch(registry);
    std::vector<ExportedZone> all;
    for (const std::string& name : zones) {
        zones::goToZone(registry, name);
        ExportedZone zone{name, {}, {}, true};
        for (const ListedValue& value : valuesHere(registry))
            if (auto kept = leftOut(value)) zone.values.push_back(*std::move(kept));
        if (!zone.values.empty()) all.push_back(std::move(zone));
    }
    if (watch.failed())
        throw util::Error(util::NumberFileAccess, "backup", "The zones could not be read from the registry.");
    return all;
}

void addValues(std::vector<ExportedZone>& zones, const std::vector<ExportedZone>& values) {
    for (const ExportedZone& more : values)
        for (ExportedZone& zone : zones)
            if (util::equalFolded(zone.name, more.name))
                zone.values.insert(zone.values.end(), more.values.begin(), more.values.end());
}

}  // namespace backup
