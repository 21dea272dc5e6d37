#include "forms/ZoneList.h"

#include "util/Error.h"
#include "util/clsStrings.h"
#include "zones/zones.h"

ZoneIcon zoneIconOf(forms::Context& context, const std::optional<RegistryValue>& icon) {
    clsStrings strings;
    std::string reference = icon ? icon->text : std::string();
    try {
        if (strings.Initialise(reference, "#") < 2) reference.clear();
    } catch (const util::Error&) {
        reference.clear();  // quotes that lead nowhere: no file has such a name
    }
    if (reference.empty()) {
        reference = basMain::DefaultIconReference(context.platform);
        strings.Initialise(reference, "#");
    }
    return {reference, strings.ElementAsString(1), strings.ElementAsString(2)};
}

std::string textOr(const std::optional<RegistryValue>& value, const char* missing) {
    return value && !value->text.empty() ? value->text : missing;
}

void fillZoneList(forms::Context& context, const ZoneListControls& controls, basMain::IconCache& icons) {
    clsRegistry& registry = context.registry;
    controls.images.add(controls.dummy.picture());
    controls.list.setImages(&controls.images);

    zones::goToZones(registry);
    const auto keys = registry.DirKey();
    if (!keys) return;
    for (const std::string& key : *keys) {
        zones::goToZone(registry, key);
        const std::string& path = registry.CurrentKey();
        const std::string zone = path.substr(path.rfind('\\') + 1);

        const std::string icon = zoneIconOf(context, registry.ValueOf("Icon")).reference;
        basMain::ExtractIcon(icons, icon, "#", 32, controls.holder);
        const int image = controls.images.add(controls.holder.picture());
        controls.list.add({textOr(registry.ValueOf("DisplayName"), "Missing Name"), image, zone, {}});
        controls.holder.clear();
    }
}

void clearZoneList(const ZoneListControls& controls) {
    controls.list.setImages(nullptr);
    controls.images.clear();
    controls.list.clear();
}
