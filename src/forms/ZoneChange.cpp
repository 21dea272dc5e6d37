#include "forms/ZoneChange.h"

#include <string_view>

#include "errors/messages.h"
#include "zones/zones.h"

namespace forms {

bool change(forms::Context& context, const std::string& zone, const std::function<void()>& change) {
    const clsRegistry::FailureWatch watch(context.registry);
    change();
    if (!watch.failed()) return true;
    const char* text = exists(context, zone)
                           ? "The registry refused a change. The zone does not have all of the new values."
                           : "The registry has no such zone. The changes could not be saved.";
    errors::tell(context.platform, text);
    return false;
}

bool exists(forms::Context& context, const std::string& zone) {
    constexpr std::string_view Root = "HKEY_CURRENT_USER\\";
    return context.registry.IsValidKey(platform::HKeyCurrentUser, zones::ZonesKey + Root.size() + ("\\" + zone));
}

}  // namespace forms
