#include "zones/siteMap.h"

#include "registry/clsRegistry.h"
#include "util/numbers.h"
#include "util/procedure.h"
#include "zones/zones.h"

namespace basMain {

ZoneSites CheckForDomains(clsRegistry& registry, const std::string& zoneNumber) {
    return procedure("basMain.CheckForDomains", [&] {
        ZoneSites found;
        const auto zone = util::wholeNumber(zoneNumber);
        const std::string top = zones::DomainsKey;
        registry.goTo(top);
        const auto domains = registry.DirKey();
        if (!domains) return found;
        for (const std::string& domain : *domains) {
            registry.goTo(top + "\\" + domain);
            const auto hosts = registry.DirKey();
            if (!hosts) continue;
            for (const std::string& host : *hosts) {
                registry.goTo(top + "\\" + domain + "\\" + host);
                const auto protocols = registry.DirValue();
                if (!protocols) continue;
                for (const ListedValue& protocol : *protocols) {
                    if (protocol.type != ValueType::Dword || protocol.number != zone) continue;
                    found.sites.push_back(protocol.name + "://" + host + "." + domain);
                    found.keys.push_back(domain + "\\" + host);
                }
            }
        }
        return found;
    });
}

void DeleteEmptyDomains(clsRegistry& registry) {
    procedure("basMain.DeleteEmptyDomains", [&] { registry.DeleteEmptyDomains(); });
}

}  // namespace basMain
