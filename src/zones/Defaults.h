// What the browser's own zones come with, and what any other zone is given.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "registry/clsRegistry.h"

namespace platform {
struct Platform;
}

namespace zones {

struct BuiltInZone {
    const char* zone;
    const char* name;
    const char* description;
    const char* iconFile;
    const char* iconResource;  // as it is stored, leading zeros and all
};
inline constexpr std::array<BuiltInZone, 5> BuiltInZones{{
    {"0", "My Computer", "Your computer", "explorer.exe", "0100"},
    {"1", "Local intranet", "This zone contains all Web sites that are on your organization's intranet.", "shell32.dll",
     "0018"},
    {"2", "Trusted sites", "This zone contains Web sites that you trust not to damage your computer or data.",
     "inetcpl.cpl", "00004480"},
    // No full stop: the browser's own text has none either.
    {"3", "Internet", "This zone contains all Web sites you haven't placed in other zones", "inetcpl.cpl", "001313"},
    {"4", "Restricted sites", "This zone contains Web sites that could potentially damage your computer or data.",
     "inetcpl.cpl", "00004481"},
}};
const BuiltInZone* builtIn(std::string_view zone);  // null for any other zone

struct Defaults {
    std::uint32_t flags;
    std::uint32_t recommendedLevel, minimumLevel;
};
const Defaults& defaultsOf(std::string_view zone);

// The icon of a zone for which none was chosen: an icon of the browser's control panel.
inline constexpr const char* FallbackIconResource = clsRegistry::FallbackIconResource;
std::string fallbackIconFile(platform::Platform& platform);  // full path

}  // namespace zones
