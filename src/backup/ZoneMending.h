// Compares zones with an export, and writes what is missing or different.
//
// And remembers what an export cannot carry.
#pragma once

#include <vector>

#include "backup/ZonesExport.h"
#include "registry/clsRegistry.h"

namespace backup {

// Makes the zone's key when it is missing, and writes the values that it lacks or holds otherwise. `emptied`: the zone
// was deleted before the import, so values under names that the editor misread are nobody's and go. True when the zone
// then holds everything.
bool mendZone(clsRegistry& registry, const ExportedZone& zone, bool emptied);

// The values of the zones key itself.
void mendZonesKey(clsRegistry& registry, const std::vector<ExportedValue>& values);

// What the zones hold and an export leaves out: binary values, and default values that are texts. Throws util::Error
// when they cannot be read.
std::vector<ExportedZone> valuesLeftOut(clsRegistry& registry, const std::vector<std::string>& zones);

// Adds their values to the zones of that name.
void addValues(std::vector<ExportedZone>& zones, const std::vector<ExportedZone>& values);

}  // namespace backup
