// What the registry session does for zones: deleting and renumbering them, and tidying the site map.
#include "registry/clsRegistry.h"
#include "util/Error.h"
#include "util/numbers.h"
#include "util/procedure.h"
#include "zones/Defaults.h"
#include "zones/zones.h"

namespace {

// The names of the zones below `path`, where the session then stands.
std::vector<std::string> listZones(clsRegistry& registry, const std::string& path) {
    registry.goTo(path);
    auto names = registry.DirKey();
    if (!names) throw util::Error(util::NumberOutOfRange, "clsRegistry", "There are no zones to delete.");
    return *std::move(names);
}

}  // namespace

void clsRegistry::DeleteZone(const std::string& zonesPath) {
    procedure("clsRegistry.DeleteZone", [&] {
        const auto count = static_cast<std::uint32_t>(listZones(*this, zonesPath).size());
        // Zones are numbered from 0 without gaps; what is named otherwise stays.
        for (std::uint32_t i = 0; i < count; ++i) DeleteKey(util::toDecimal(i));
    });
}

void clsRegistry::DeleteAndRename(const std::string& zonesPath, const std::string& zoneNumber) {
    procedure("clsRegistry.DeleteAndRename", [&] {
        const auto last = static_cast<std::uint32_t>(listZones(*this, zonesPath).size() - 1);
        const auto first = zones::numberOf(zoneNumber);
        // "007" is not zone 7: that one would be lost in its stead.
        if (!first)
            throw util::Error(util::NumberNotANumber, "clsRegistry",
                              "The zone \"" + zoneNumber + "\" has no number and cannot be deleted.");
        for (std::uint32_t n = *first; n <= last; ++n) {
            const std::string zone = util::toDecimal(n);
            if (n == last) return DeleteKey(zone);
            // Read before anything is deleted: a zone that cannot be read cannot move either, and would be lost.
            const std::uint32_t before = failures_;
            goTo(zonesPath + "\\" + util::toDecimal(n + 1));
            const auto values = DirValue();
            if (failures_ != before)
                throw util::Error(util::NumberInternal, "clsRegistry",
                                  "The zone \"" + util::toDecimal(n + 1) + "\" cannot be read, and is not moved.");
            goTo(zonesPath);
            DeleteKey(zone);
            MakeKey(zone);
            goTo(zonesPath + "\\" + zone);
            // Numbers are not carried across: only names, descriptions and icons move down with their zone.
            if (values)
                for (const ListedValue& value : *values)
                    if (value.type == ValueType::String) ValueOf(value.name, ValueType::String, value.text);
            goTo(zonesPath);
        }
    });
}

void clsRegistry::DeleteEmptyDomains() {
    procedure("clsRegistry.DeleteEmptyDomains", [&] {
        const std::string top = zones::DomainsKey;
        goTo(top);
        const auto domains = DirKey();
        if (!domains) return;
        for (const std::string& domain : *domains) {
            goTo(top + "\\" + domain);
            const auto keys = CountKeys();
            goTo(top);
            // Only a key that was seen to be empty: some systems delete a key with everything below it.
            if (keys == 0u) DeleteKey(domain);
        }
    });
}

std::string clsRegistry::GetIconForOS() {
    return procedure("clsRegistry.GetIconForOS",
                     [&] { return zones::fallbackIconFile(platform_) + "#" + zones::FallbackIconResource; });
}
