// Compares zones with an export, and writes what is missing or different.
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

}  // namespace backup
