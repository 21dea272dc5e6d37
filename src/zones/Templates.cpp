#include "zones/Templates.h"

#include "registry/clsRegistry.h"
#include "util/procedure.h"
#include "zones/zones.h"

namespace zones {
namespace {

// The procedure name of each level's copy, in the order of Levels.
constexpr std::array<const char*, OfferedLevels> SaveNames{"frmEdit.SaveSecHigh", "frmEdit.SaveSecMedium",
                                                           "frmEdit.SaveSecMedLow", "frmEdit.SaveSecLow"};
constexpr int High = 0, MediumLow = 2;

std::optional<std::vector<ListedValue>> valuesOf(clsRegistry& registry, const char* templateName) {
    registry.goTo(std::string(TemplatesKey) + "\\" + templateName);
    return registry.DirValue();
}

// Writes the template's settings into the zone and calls `afterEach` after each of its values. The session ends in the
// zone.
template <class AfterEach>
void copyTemplate(clsRegistry& registry, int level, const std::string& zone, AfterEach&& afterEach) {
    const auto settings = templateOf(registry, level);
    goToZone(registry, zone);
    if (!settings) return;
    for (const ListedValue& setting : *settings) {
        if (isSetting(setting)) {
            // 0 would allow what the setting is about, so it must not stand for a number that cannot be read.
            setting.plainNumber ? registry.writeNumber(setting.name, setting.number) : registry.NoteFailure();
        }
        afterEach();
    }
}

}  // namespace

std::optional<std::vector<ListedValue>> templateOf(clsRegistry& registry, int level) {
    const clsRegistry::FailureWatch watch(registry);
    auto values = valuesOf(registry, Levels.at(static_cast<std::size_t>(level)).name);
    // Its name in most versions of the browser.
    if (!values && !watch.failed() && level == MediumLow) values = valuesOf(registry, "MedLow");
    return values;
}

bool isSetting(const ListedValue& value) {
    return value.type == ValueType::Dword && value.name != "TemplateIndex";
}

bool hasTemplate(clsRegistry& registry, int level) {
    return templateOf(registry, level).has_value();
}

void SaveSecurityLevel(clsRegistry& registry, const std::string& zone, int level) {
    procedure(SaveNames.at(static_cast<std::size_t>(level)), [&] {
        const std::uint32_t number = Levels[static_cast<std::size_t>(level)].number;
        // After each value, so that a copy that is interrupted leaves the zone at the level whose settings it has in
        // part.
        copyTemplate(registry, level, zone, [&] { registry.writeNumber(value::CurrentLevel, number); });
    });
}

void SetDefaults(clsRegistry& registry, const std::string& zone) {
    procedure("frmAdd.SetDefaults", [&] {
        copyTemplate(registry, High, zone, [] {});
        registry.writeText("", {});
        for (const char* level : {value::CurrentLevel, value::RecommendedLevel, value::MinLevel})
            registry.writeNumber(level, Levels[High].number);
        registry.writeNumber(value::Flags, MissingFlags);
    });
}

}  // namespace zones
