#include "mail/identities.h"

#include "forms/ZoneList.h"
#include "util/Error.h"
#include "util/characters.h"
#include "util/clsStrings.h"
#include "zones/zones.h"

namespace mail {
namespace {

Found goToIdentity(clsRegistry& registry, const std::string& identity) {
    return registry.goTo(std::string(IdentitiesKey) + "\\" + identity);
}

}  // namespace

std::string settingsPath(const std::string& identity) {
    return std::string(IdentitiesKey) + "\\" + identity + "\\" + SettingsKey;
}

Found goToSettings(clsRegistry& registry, const std::string& settings) {
    return registry.goTo(std::string(util::trimmed(settings)));
}

std::string menuCaption(const std::string& name) {
    if (name == "-") return "&-";
    return clsStrings().Replace(name, "&", "&&");
}

void fillMenu(forms::Context& context, ui::MenuItem& menu) {
    clsRegistry& registry = context.registry;
    registry.goTo(IdentitiesKey);
    const auto keys = registry.DirKey();
    if (!keys) return;
    int index = 0;
    for (const std::string& key : *keys) {
        if (goToIdentity(registry, key) != Found::Present) continue;
        const std::string caption = menuCaption(forms::textOr(registry.readText(UserName), forms::MissingName));
        ui::MenuItem& item = index == 0 ? menu.items().front() : menu.add("mnuOEUser", caption, index);
        item.setCaption(caption);
        item.setTag(key);
        item.setEnabled(true);
        ++index;
    }
}

std::string nameOf(forms::Context& context, const std::string& identity) {
    goToIdentity(context.registry, identity);
    return forms::textOr(context.registry.readText(UserName), forms::MissingName);
}

std::string zoneNameOf(forms::Context& context, const std::string& identity) {
    clsRegistry& registry = context.registry;
    const Found settings = goToSettings(registry, settingsPath(identity));
    if (settings == Found::Unreadable)
        throw util::Error(util::NumberFileNotFound, "frmMain", "The mail settings of this identity cannot be read.");
    if (settings == Found::Absent)
        throw util::Error(util::NumberFileNotFound, "frmMain",
                          "This identity has no mail settings: Outlook Express has not been used with it yet.");
    // A fresh installation has not written a zone. It is named like a zone that does not exist.
    const NumberReading zone = registry.readNumber(SecurityZone);
    if (zone.display.empty()) return forms::MissingName;
    zones::goToZone(registry, zone.display);
    return forms::textOr(registry.readText(zones::value::DisplayName), forms::MissingName);
}

}  // namespace mail
