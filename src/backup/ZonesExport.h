// What a registry export says about the zones, and whether it may be imported at all: it may touch the zones key and
// the keys directly below it, and delete nothing.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "backup/RegistryExport.h"

namespace backup {

struct ExportedZone {
    std::string name;  // of the key below the zones key
    std::vector<ExportedValue> values;
    // Names under which a registry editor stores some of the values, or lines of their texts: it takes backslashes,
    // quotes and line breaks for something else than this program, which writes them as they are.
    std::vector<std::string> misread;
    // False when something is missing: the file ends before the zone does, or a line cannot be read.
    bool whole = false;
};

struct ZonesExport {
    std::vector<ExportedZone> zones;    // in the order of the file
    std::vector<ExportedValue> values;  // of the zones key itself
    // The first line by which the export would change something else or delete something: its key as it stands there.
    std::optional<std::string> forbidden;
};

// Of several exports in one file the later wins, value by value. Lines that are not understood are passed over.
ZonesExport readZonesExport(std::string_view bytes);

}  // namespace backup
