#include "zones/zones.h"

#include <algorithm>

#include "registry/clsRegistry.h"
#include "util/basSystem.h"
#include "util/numbers.h"
#include "zones/Defaults.h"

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

bool isBuiltIn(std::string_view zone) {
    return builtIn(zone) != nullptr;
}

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

std::optional<std::uint32_t> numberOf(std::string_view zone) {
    const auto number = util::wholeNumber(zone);
    return number && util::toDecimal(*number) == zone ? number : std::nullopt;
}

std::string GetSecurity(const std::string& level) {
    if (level.empty()) return {};
    for (const Level& known : Levels) {
        if (level == util::toDecimal(known.number) || level == util::toDigits(known.number, 1, 16)) return known.name;
        if (level == known.name) return util::toDecimal(known.number);
    }
    return {};
}

std::optional<int> levelIndex(std::uint32_t number) {
    for (std::size_t i = 0; i < Levels.size(); ++i)
        if (number == Levels[i].number) return static_cast<int>(i);
    return std::nullopt;
}

Found goToZones(clsRegistry& registry) {
    return registry.goTo(ZonesKey);
}

Found goToZone(clsRegistry& registry, const std::string& zone) {
    return registry.goTo(std::string(ZonesKey) + "\\" + zone);
}

}  // namespace zones
