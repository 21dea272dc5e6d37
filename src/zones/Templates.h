// Security levels: a zone takes one over from the browser's own template for it.
#pragma once

#include <array>
#include <string>

class clsRegistry;

namespace zones {

// One subkey a level. Its DWORD values are the level's settings, but "TemplateIndex", which describes the template.
inline constexpr const char* TemplatesKey =
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\TemplatePolicies";

// Whether the machine has settings for the level `level` (a place in Levels, 0 to 3).
bool hasTemplate(clsRegistry& registry, int level);

// Gives the zone every setting of the level `level` (a place in Levels, 0 to 3) and records the level as its current
// one. Settings that the template lacks stay. Nothing changes when there is no such template.
void SaveSecurityLevel(clsRegistry& registry, const std::string& zone, int level);

// The starting configuration of a new zone: the settings of "High", as far as there is a template for them, all three
// levels High, flags 3, an empty default value.
void SetDefaults(clsRegistry& registry, const std::string& zone);

}  // namespace zones
