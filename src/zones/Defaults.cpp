#include "zones/Defaults.h"

#include <algorithm>

#include "util/basSystem.h"

namespace zones {
namespace {

constexpr std::uint32_t High = 0x12000, Medium = 0x11000, MediumLow = 0x10500, Low = 0x10000;

// Of the browser's own zones by number, and at last of any other zone.
constexpr std::array<Defaults, 6> ZoneDefaults{{
    {0x21, Low, Low},
    {0xDB, MediumLow, Low},
    {0x47, Low, Low},
    {0x01, Medium, Medium},
    {0x03, High, High},
    {0x03, High, High},
}};

}  // namespace

const BuiltInZone* builtIn(std::string_view zone) {
    const auto found =
        std::find_if(BuiltInZones.begin(), BuiltInZones.end(), [&](const BuiltInZone& z) { return zone == z.zone; });
    return found == BuiltInZones.end() ? nullptr : &*found;
}

const Defaults& defaultsOf(std::string_view zone) {
    const BuiltInZone* own = builtIn(zone);
    return own ? ZoneDefaults[static_cast<std::size_t>(own - BuiltInZones.data())] : ZoneDefaults.back();
}

std::string fallbackIconFile(platform::Platform& platform) {
    return basSystem::QualifyPath(basSystem::GetSystemDir(platform)) + clsRegistry::FallbackIconFile;
}

}  // namespace zones
