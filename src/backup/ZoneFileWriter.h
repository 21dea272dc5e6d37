// Writes the zone backup (".tvf") of all zones.
#pragma once

#include <string>
#include <vector>

#include "forms/Context.h"

namespace backup {

// Adds the zones of these names to the backup's ".tvf" file, which is created when absent. Throws util::Error when the
// disk refuses, the registry cannot be read or a zone is gone.
void writeZones(forms::Context& context, const std::string& baseName, const std::string& description,
                const std::vector<std::string>& zones);

}  // namespace backup
