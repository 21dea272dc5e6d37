// Writes the zones as a registry export ("REGEDIT4") that the system's registry editor can import.
//
// The file carries numbers and text. Binary values are left out, and so are default values that hold anything.
// Backslashes are doubled in "Icon" only, quotes nowhere: a registry editor misreads other text with such characters,
// while this program reads it as it was written.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "forms/Context.h"
#include "util/FunctionRef.h"

namespace backup {

// The line of one value, without line end; nothing for a value the file does not carry.
std::optional<std::string> exportLine(const ListedValue& value);

// Adds an export of the zones of these names to the backup's ".reg" file, which is created when absent. `afterValue`
// runs after each value and each zone. Throws util::Error when the disk refuses, the registry cannot be read or a zone
// is gone.
void writeExport(forms::Context& context, const std::string& baseName, const std::vector<std::string>& zones,
                 util::FunctionRef<void()> afterValue);

}  // namespace backup
