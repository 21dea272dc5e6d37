#include "zones/siteMap.h"

#include "registry/clsRegistry.h"
#include "util/numbers.h"
#include "util/procedure.h"
#include "zones/zones.h"

namespace basMain {
namespace {

// Names as a move would read them, ".." or a trailing blank, are only names behind a path and before a backslash.
void goTo(clsRegistry& registry, const std::string& path) {
    registry.cD("\\" + path + "\\");
}

}  // namespace

ZoneSites CheckForDomains(clsRegistry& registry, const std::string& zoneNumber) {
    return procedure("basMain.CheckForDomains", [&] {
        ZoneSites found;
        const auto zone = util::wholeNumber(zoneNumber);
        const std::string top = zones::DomainsKey;
        registry.cD("\\");
        goTo(registry, top);
        const auto domains = registry.DirKey();
        if (!domains) return found;
        for (const std::string& domain : *domains) {
            goTo(registry, top + "\\" + domain);
            const auto hosts = registry.DirKey();
            if (!hosts) continue;
            for (const std::string& host : *hosts) {
                goTo(registry, top + "\\" + domain + "\\" + host);
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
