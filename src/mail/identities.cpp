#include "mail/identities.h"

#include "forms/ZoneList.h"
#include "util/Error.h"
#include "util/characters.h"
#include "util/clsStrings.h"
#include "util/numbers.h"
#include "zones/zones.h"

namespace mail {

std::string settingsPath(const std::string& identity) {
    return std::string(IdentitiesKey) + "\\" + identity + "\\" + SettingsKey;
}

std::string menuCaption(const std::string& name) {
    if (name == "-") return "&-";
    return clsStrings().Replace(name, "&", "&&");
}

void fillMenu(forms::Context& context, ui::MenuItem& menu, const std::function<void(int index)>& onClick) {
    clsRegistry& registry = context.registry;
    registry.goTo(IdentitiesKey);
    const auto keys = registry.DirKey();
    if (!keys) return;
    int index = 0;
    for (const std::string& key : *keys) {
        registry.cD(key);
        const std::string caption = menuCaption(textOr(registry.readText("Username"), "Missing Name"));
        registry.cD("..");

        ui::MenuItem& item = index == 0 ? menu.items().front() : menu.add("mnuOEUser", caption, index);
        item.setCaption(caption);
        item.setTag(key);
        item.setEnabled(true);
        item.onClick = [onClick, index] { onClick(index); };
        ++index;
    }
}

std::string zoneNameOf(forms::Context& context, const std::string& identity) {
    clsRegistry& registry = context.registry;
    const std::string settings = settingsPath(identity);
    const std::size_t root = settings.find('\\');
    if (!registry.IsValidKey(platform::HKeyCurrentUser, std::string(util::trimmed(settings.substr(root + 1)))))
        throw util::Error(util::NumberFileNotFound, "frmMain",
                          "This identity has no mail settings: Outlook Express has not been used with it yet.");
    registry.cD("\\" + settings);
    // A fresh installation has not written a zone: then there is none to name, like for a zone that does not exist.
    const NumberReading zone = registry.readNumber(ZoneValue);
    if (zone.display.empty()) return textOr({}, "Missing Name");
    zones::goToZone(registry, zone.display);
    return textOr(registry.readText(zones::value::DisplayName), "Missing Name");
}

}  // namespace mail
