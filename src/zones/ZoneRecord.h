// A zone as it stands in the registry, read once.
#pragma once

#include <string>

#include "registry/clsRegistry.h"

namespace zones {

struct ZoneTexts {
    TextReading name, description, icon;
    bool usable() const { return name.usable() && description.usable() && icon.usable(); }
};

struct ZoneLevels {
    NumberReading recommended, minimum, current;
    bool usable() const { return recommended.usable() && minimum.usable() && current.usable(); }
};

struct ZoneRecord {
    Found found = Found::Absent;  // of the key; what could not be read for want of it is Absent, too
    ZoneTexts texts;
    ZoneLevels levels;
    NumberReading flags;
};

// By the zone's name. The session ends in the zone's key.
ZoneRecord readZone(clsRegistry& registry, const std::string& zone);

// A part of the zone in whose key the session stands.
ZoneTexts readTexts(clsRegistry& registry);
ZoneLevels readLevels(clsRegistry& registry);
NumberReading readFlags(clsRegistry& registry);

// The key name of the zone at the index `zone` (its number, from 0) of the registry's list of zones; "" when there is
// none, or its name is listed twice. With gaps in the numbers, or from ten zones on where the system lists "10" before
// "2", that is not the zone of that name: levels and settings have always been read by index. The session ends at the
// zones.
std::string zoneAtIndex(clsRegistry& registry, const std::string& zone);

}  // namespace zones
