#include "zones/deletion.h"

#include "registry/clsRegistry.h"
#include "util/Places.h"
#include "util/numbers.h"
#include "zones/zones.h"

namespace zones {
namespace {

DeletionPlan stopped(Obstacle obstacle, std::string key = {}) {
    return {obstacle, std::move(key), {}};
}

// The first zone from the number `first` on that cannot be read; "" when all can.
std::string unreadableZone(clsRegistry& registry, std::uint32_t first, std::size_t count) {
    for (std::uint32_t n = first; n < count; ++n) {
        const clsRegistry::FailureWatch watch(registry);
        const Found found = goToZone(registry, util::toDecimal(n));
        registry.DirValue();
        // One that is listed and cannot be found has a name that the code page makes a number.
        if (found != Found::Present || watch.failed()) return std::string(ZonesKey) + "\\" + util::toDecimal(n);
    }
    return {};
}

}  // namespace

DeletionPlan planDeletion(clsRegistry& registry, const std::string& zone) {
    const clsRegistry::FailureWatch watch(registry);
    goToZones(registry);
    const auto names = registry.DirKey();
    if (watch.failed()) return stopped(Obstacle::Unreadable, ZonesKey);
    if (!names) return stopped(Obstacle::NotConsecutive);

    util::Places once;
    for (const std::string& name : *names)
        if (!once.try_emplace(name).second) return stopped(Obstacle::ListedTwice, name);
    for (const std::string& name : *names)
        if (const auto found = numberOf(name); !found || *found >= names->size())
            return stopped(Obstacle::NotConsecutive);
    const auto number = numberOf(zone);
    if (!number || *number >= names->size()) return stopped(Obstacle::NotConsecutive);

    if (std::string key = unreadableZone(registry, *number, names->size()); !key.empty())
        return stopped(Obstacle::Unreadable, std::move(key));
    DeletionPlan plan;
    plan.sites = readSiteMap(registry);
    if (!plan.sites.unreadable.empty()) return stopped(Obstacle::Unreadable, plan.sites.unreadable);
    return plan;
}

void deleteZone(clsRegistry& registry, const std::string& zone, const DeletionPlan& plan, bool sitesToo) {
    if (sitesToo) deleteSites(registry, plan.sites, numberOf(zone).value());
    registry.DeleteAndRename(ZonesKey, zone, [&](std::uint32_t from) { moveSitesDown(registry, plan.sites, from); });
}

}  // namespace zones
