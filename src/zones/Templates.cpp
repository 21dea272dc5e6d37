#include "zones/Templates.h"

#include "registry/clsRegistry.h"
#include "util/procedure.h"
#include "zones/zones.h"

namespace zones {
namespace {

// Under which name each level's copy runs, in the order of Levels.
constexpr std::array<const char*, OfferedLevels> SaveNames{"frmEdit.SaveSecHigh", "frmEdit.SaveSecMedium",
                                                           "frmEdit.SaveSecMedLow", "frmEdit.SaveSecLow"};
constexpr int High = 0;

// Copies the template's settings into the zone and calls `behind` after each value. The session ends in the zone, or
// in the template's key when that holds nothing.
template <class Behind>
void copyTemplate(clsRegistry& registry, const Level& level, const std::string& zone, Behind&& behind) {
    registry.goTo(std::string(TemplatesKey) + "\\" + level.name);
    const auto settings = registry.DirValue();
    if (!settings) return;
    goToZone(registry, zone);
    for (const ListedValue& setting : *settings) {
        if (setting.type == ValueType::Dword && setting.name != "TemplateIndex")
            registry.writeNumber(setting.name, setting.number);
        behind();
    }
}

}  // namespace

bool hasTemplate(clsRegistry& registry, int level) {
    registry.goTo(std::string(TemplatesKey) + "\\" + Levels.at(static_cast<std::size_t>(level)).name);
    return registry.DirValue().has_value();
}

void SaveSecurityLevel(clsRegistry& registry, const std::string& zone, int level) {
    procedure(SaveNames.at(static_cast<std::size_t>(level)), [&] {
        const Level& wanted = Levels[static_cast<std::size_t>(level)];
        // With each value, so that a copy that breaks off leaves the zone at the level whose settings it has in part.
        copyTemplate(registry, wanted, zone, [&] { registry.writeNumber(value::CurrentLevel, wanted.number); });
    });
}

void SetDefaults(clsRegistry& registry, const std::string& zone) {
    procedure("frmAdd.SetDefaults", [&] {
        copyTemplate(registry, Levels[High], zone, [] {});
        // Without a template the session still stands in the template's key, and what is written there would reach
        // every zone that is given its level.
        goToZone(registry, zone);
        registry.writeText("", {});
        for (const char* level : {value::CurrentLevel, value::RecommendedLevel, value::MinLevel})
            registry.writeNumber(level, Levels[High].number);
        registry.writeNumber(value::Flags, MissingFlags);
    });
}

}  // namespace zones
