#include "forms/ZoneList.h"

#include "zones/zones.h"

namespace forms {

std::string textOr(const TextReading& value, const char* missing) {
    return value.empty() ? missing : value.text;
}

void fillZoneList(Context& context, const ZoneListControls& controls, basMain::IconCache& icons) {
    clsRegistry& registry = context.registry;
    controls.images.add(controls.dummy.picture());
    controls.list.setImages(&controls.images);

    zones::goToZones(registry);
    const auto keys = registry.DirKey();
    if (!keys) return;
    for (const std::string& zone : *keys) {
        if (zones::goToZone(registry, zone) == Found::Absent) continue;  // a name that the code page cannot carry
        const TextReading icon = registry.readText(zones::value::Icon);
        const TextReading name = registry.readText(zones::value::DisplayName);
        const icons::IconReference shown = icons::referenceOrDefault(context.platform, icon.text);
        basMain::ExtractIcon(icons, shown, 32, controls.holder);
        const int image = controls.images.add(controls.holder.picture());
        controls.list.add({textOr(name, MissingName), image, zone, {}});
        controls.holder.clear();
    }
}

void clearZoneList(const ZoneListControls& controls) {
    controls.list.setImages(nullptr);
    controls.images.clear();
    controls.list.clear();
}

}  // namespace forms
