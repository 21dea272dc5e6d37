#include "zones/ZoneRecord.h"

#include <algorithm>

#include "zones/zones.h"

namespace zones {

ZoneRecord readZone(clsRegistry& registry, const std::string& zone) {
    ZoneRecord record;
    record.found = goToZone(registry, zone);
    if (record.found != Found::Present) return record;
    record.texts = readTexts(registry);
    record.levels = readLevels(registry);
    record.flags = readFlags(registry);
    return record;
}

ZoneTexts readTexts(clsRegistry& registry) {
    return {registry.readText(value::DisplayName), registry.readText(value::Description),
            registry.readText(value::Icon)};
}

ZoneLevels readLevels(clsRegistry& registry) {
    return {registry.readNumber(value::RecommendedLevel), registry.readNumber(value::MinLevel),
            registry.readNumber(value::CurrentLevel)};
}

NumberReading readFlags(clsRegistry& registry) {
    return registry.readNumber(value::Flags);
}

std::string zoneAtIndex(clsRegistry& registry, const std::string& zone) {
    goToZones(registry);
    const auto keys = registry.DirKey();
    const auto index = numberOf(zone);
    if (!keys || !index || *index >= keys->size()) return {};
    // A name that is listed twice leads to one of the two keys, and perhaps not to this one.
    const std::string& key = (*keys)[*index];
    return std::count(keys->begin(), keys->end(), key) == 1 ? key : std::string();
}

}  // namespace zones
