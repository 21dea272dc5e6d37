#include "editing/ZoneChange.h"

#include <string_view>

#include "ui/Desktop.h"

namespace editing {

bool goToZoneByPlace(clsRegistry& registry, const std::string& zone) {
    zones::goToZones(registry);
    const auto keys = registry.DirKey();
    const auto place = zones::numberOf(zone);
    if (!keys || !place || *place >= keys->size()) return false;
    registry.cD((*keys)[*place]);
    return true;
}

bool change(Program& program, const std::string& zone, const std::function<void()>& change) {
    const clsRegistry::FailureWatch watch(program.registry);
    change();
    if (!watch.failed()) return true;
    const char* text = exists(program, zone)
                           ? "The registry refused a change. The zone does not have all of the new values."
                           : "The registry has no such zone. The changes could not be saved.";
    program.platform.desktop.messageBox(text, AppTitle, ui::MessageStyle::Exclamation);
    return false;
}

bool exists(Program& program, const std::string& zone) {
    constexpr std::string_view Root = "HKEY_CURRENT_USER\\";
    return program.registry.IsValidKey(platform::HKeyCurrentUser, zones::ZonesKey + Root.size() + ("\\" + zone));
}

}  // namespace editing
