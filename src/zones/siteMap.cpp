#include "zones/siteMap.h"

#include <algorithm>

#include "registry/clsRegistry.h"
#include "util/Places.h"
#include "util/numbers.h"
#include "util/procedure.h"
#include "zones/zones.h"

namespace zones {
namespace {

class Walk {
public:
    explicit Walk(clsRegistry& registry) : registry_(registry) {}

    SiteMap take() {
        for (const std::string& domain : subKeys(DomainsKey)) {
            const std::string path = std::string(DomainsKey) + "\\" + domain;
            readEntries(path);
            for (const std::string& host : subKeys(path)) readEntries(path + "\\" + host, domain, host);
        }
        for (const std::string& range : subKeys(RangesKey)) readEntries(std::string(RangesKey) + "\\" + range);
        readEntries(ProtocolDefaultsKey);
        return std::move(map_);
    }

private:
    // Moves to a key that has been listed or may be missing altogether.
    bool enter(const std::string& path, bool listed) {
        const Found found = registry_.goTo(path);
        if (found == Found::Unreadable || (found == Found::Absent && listed)) note(path);
        return found == Found::Present;
    }
    std::vector<std::string> subKeys(const std::string& path) {
        if (!enter(path, false)) return {};
        const clsRegistry::FailureWatch watch(registry_);
        const std::vector<std::string> names = registry_.DirKey().value_or(std::vector<std::string>());
        if (watch.failed()) note(path);
        // Two names that the code page makes the same lead to one key: the other cannot be read.
        util::Places known;
        std::vector<std::string> once;
        for (const std::string& name : names)
            known.try_emplace(name).second ? once.push_back(name) : note(path + "\\" + name);
        return once;
    }
    void readEntries(const std::string& path, const std::string& domain = {}, const std::string& host = {}) {
        if (!enter(path, path != ProtocolDefaultsKey)) return;
        const clsRegistry::FailureWatch watch(registry_);
        const auto values = registry_.DirValue();
        if (watch.failed()) note(path);
        if (!values) return;
        for (const ListedValue& value : *values)
            if (value.plainNumber) map_.entries.push_back({path, value.name, value.number, domain, host});
    }
    void note(const std::string& path) {
        if (map_.unreadable.empty()) map_.unreadable = path;
    }

    clsRegistry& registry_;
    SiteMap map_;
};

}  // namespace

SiteMap readSiteMap(clsRegistry& registry) {
    return Walk(registry).take();
}

bool hasSites(const SiteMap& map, std::uint32_t zone) {
    return std::any_of(map.entries.begin(), map.entries.end(), [&](const SiteEntry& e) { return e.zone == zone; });
}

void deleteSites(clsRegistry& registry, const SiteMap& map, std::uint32_t zone) {
    for (const std::string& key : basMain::CheckForDomains(map, util::toDecimal(zone)).keys) {
        registry.goTo(DomainsKey);
        registry.DeleteKey(key);
    }
    for (const SiteEntry& entry : map.entries)
        if (entry.zone == zone && entry.host.empty() && registry.goTo(entry.key) == Found::Present)
            registry.DeleteValue(entry.value);
    basMain::DeleteEmptyDomains(registry);
}

void moveSitesDown(clsRegistry& registry, const SiteMap& map, std::uint32_t from) {
    for (const SiteEntry& entry : map.entries)
        if (entry.zone == from && registry.goTo(entry.key) == Found::Present)
            registry.writeNumber(entry.value, from - 1);
}

}  // namespace zones

namespace basMain {

ZoneSites CheckForDomains(const zones::SiteMap& map, const std::string& zoneNumber) {
    return procedure("basMain.CheckForDomains", [&] {
        ZoneSites found;
        const auto zone = util::wholeNumber(zoneNumber);
        for (const zones::SiteEntry& entry : map.entries) {
            if (entry.zone != zone || entry.host.empty()) continue;
            found.sites.push_back(entry.value + "://" + entry.host + "." + entry.domain);
            found.keys.push_back(entry.domain + "\\" + entry.host);
        }
        return found;
    });
}

void DeleteEmptyDomains(clsRegistry& registry) {
    procedure("basMain.DeleteEmptyDomains", [&] { registry.DeleteEmptyDomains(zones::DomainsKey); });
}

}  // namespace basMain
