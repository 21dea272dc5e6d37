// The browser's templates for security levels: each holds all settings of its level, and a zone is set to a level by
// copying them.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "registry/clsRegistry.h"

namespace zones {

// One subkey for each level, of the level's name; "Medium-Low" may be called "MedLow". Its DWORD values are the level's
// settings, except "TemplateIndex", which describes the template itself.
inline constexpr const char* TemplatesKey =
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\TemplatePolicies";

// Levels are given by their index in Levels, 0 to 3.

// The values of a level's template; nothing when it is missing, empty or cannot be read.
std::optional<std::vector<ListedValue>> templateOf(clsRegistry& registry, int level);
// Whether a value of a template is one of its settings. A number that cannot be read is one, too.
bool isSetting(const ListedValue& value);

// Whether the machine has a template for the level, with anything in it.
bool hasTemplate(clsRegistry& registry, int level);

// Copies the settings of a level into the zone and records the level as the current one. Settings of the zone that the
// template lacks stay. Without a template nothing changes. A setting that is no plain number is left out and counts as
// a failure.
void SaveSecurityLevel(clsRegistry& registry, const std::string& zone, int level);

// Gives a new zone the settings of "High", as far as there is a template, an empty default value, flags 3, and "High"
// as all three levels.
void SetDefaults(clsRegistry& registry, const std::string& zone);

}  // namespace zones
