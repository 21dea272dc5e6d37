#include "forms/ZoneChange.h"

#include "errors/messages.h"
#include "forms/ZoneList.h"
#include "util/numbers.h"
#include "zones/zones.h"

namespace forms {
namespace {

void tellAndReload(Context& context, const std::string& text) {
    errors::tell(context.platform, text);
    if (context.mainWindow) context.mainWindow->ReloadAsItIs();
}

}  // namespace

bool attempt(Context& context, util::FunctionRef<void()> change, util::FunctionRef<std::string()> refusal) {
    const clsRegistry::FailureWatch watch(context.registry);
    change();
    if (!watch.failed()) return true;
    errors::tell(context.platform, refusal());
    return false;
}

bool change(Context& context, const std::string& zone, util::FunctionRef<void()> change,
            const std::string& withoutZone) {
    return attempt(context, change, [&] {
        return exists(context, zone) ? "Some changes could not be written; the zone has only part of the new values."
                                     : withoutZone;
    });
}

bool exists(Context& context, const std::string& zone) {
    return zones::goToZone(context.registry, zone) != Found::Absent;
}

bool stillShown(Context& context, const std::string& zone, const std::string& shownName,
                const std::string& consequence) {
    const Found key = zones::goToZone(context.registry, zone);
    TextReading name{key, {}};
    if (key == Found::Present) name = context.registry.readText(zones::value::DisplayName);
    std::string reason = "This zone no longer exists. ";
    if (name.found == Found::Unreadable) {
        reason = std::string("The registry key \"") + zones::ZonesKey + "\\" + zone + "\" cannot be read. ";
    } else if (key == Found::Present) {
        if (textOr(name, MissingName) == shownName) return true;
        reason = "Another program has changed this zone. ";
    }
    tellAndReload(context, reason + consequence);
    return false;
}

std::optional<std::string> numberOfNewZone(Context& context) {
    clsRegistry& registry = context.registry;
    const clsRegistry::FailureWatch watch(registry);
    zones::goToZones(registry);
    const auto keys = registry.DirKey();
    const std::string zone = util::toDecimal(keys ? static_cast<std::uint32_t>(keys->size()) : 0);
    const bool taken = exists(context, zone);
    if (watch.failed()) {
        errors::tell(context.platform, "The zones cannot be read. The new zone was not added.");
        return std::nullopt;
    }
    if (!taken) return zone;
    tellAndReload(context, "The new zone was not added because the zones are not numbered consecutively from 0: zone " +
                               zone + " exists already.");
    return std::nullopt;
}

}  // namespace forms
