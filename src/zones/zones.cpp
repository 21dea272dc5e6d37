#include "zones/zones.h"

#include "registry/clsRegistry.h"
#include "util/numbers.h"
#include "util/procedure.h"
#include "zones/Defaults.h"

namespace zones {

bool isBuiltIn(std::string_view zone) {
    return builtIn(zone) != nullptr;
}

std::optional<std::uint32_t> numberOf(std::string_view zone) {
    const auto number = util::wholeNumber(zone);
    return number && util::toDecimal(*number) == zone ? number : std::nullopt;
}

std::string GetSecurity(const std::string& level) {
    return procedure("basMain.GetSecurity", [&]() -> std::string {
        if (level.empty()) return {};
        for (const Level& known : Levels) {
            std::string decimal = util::toDecimal(known.number);
            if (level == decimal || level == util::toDigits(known.number, 1, 16)) return known.name;
            if (level == known.name) return decimal;
        }
        return {};
    });
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
