#include "zones/ZoneRecord.h"

#include "zones/zones.h"

namespace zones {

ZoneRecord readZone(clsRegistry& registry, const std::string& zone) {
    ZoneRecord record;
    record.key = zone;
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

std::string zoneAtPlace(clsRegistry& registry, const std::string& zone) {
    goToZones(registry);
    const auto keys = registry.DirKey();
    const auto place = numberOf(zone);
    if (!keys || !place || *place >= keys->size()) return {};
    return (*keys)[*place];
}

}  // namespace zones
