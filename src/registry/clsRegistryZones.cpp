// What the session does for zones: deleting and renumbering them, and tidying the site map.
#include "registry/clsRegistry.h"
#include "util/Error.h"
#include "util/basSystem.h"
#include "util/numbers.h"
#include "util/procedure.h"

namespace {

// The names of the zones below `path`, where the session then stands.
std::vector<std::string> listZones(clsRegistry& registry, const std::string& path) {
    registry.goTo(path);
    auto names = registry.DirKey();
    if (!names) throw util::Error(util::NumberOutOfRange, "clsRegistry", "There are no zones to delete.");
    return *std::move(names);
}

// "007" is not zone 7, which would be deleted instead.
std::uint32_t numberToDelete(const std::string& zone) {
    const auto number = util::wholeNumber(zone);
    if (!number || util::toDecimal(*number) != zone)
        throw util::Error(util::NumberNotANumber, "clsRegistry",
                          "The zone \"" + zone + "\" has no number and cannot be deleted.");
    return *number;
}

}  // namespace

void clsRegistry::DeleteZone(const std::string& zonesPath) {
    procedure("clsRegistry.DeleteZone", [&] {
        const auto count = static_cast<std::uint32_t>(listZones(*this, zonesPath).size());
        // Zones are numbered from 0 without gaps; what is named otherwise stays.
        for (std::uint32_t i = 0; i < count; ++i) DeleteKey(util::toDecimal(i));
    });
}

void clsRegistry::DeleteAndRename(const std::string& zonesPath, const std::string& zoneNumber,
                                  util::FunctionRef<void(std::uint32_t)> moved) {
    procedure("clsRegistry.DeleteAndRename", [&] {
        const auto last = static_cast<std::uint32_t>(listZones(*this, zonesPath).size() - 1);
        for (std::uint32_t n = numberToDelete(zoneNumber); n <= last; ++n) {
            goTo(zonesPath);
            if (n == last) return DeleteKey(util::toDecimal(n));
            const FailureWatch moving(*this);
            if (!MoveDown(zonesPath, n + 1)) return;
            if (moved) moved(n + 1);
            // What refers to it has stayed behind, and must not come to stand for the next zone.
            if (moving.failed()) return;
        }
    });
}

// Numbers are not carried across: only names, descriptions and icons move down with their zone.
bool clsRegistry::MoveDown(const std::string& zonesPath, std::uint32_t from) {
    const std::string zone = util::toDecimal(from - 1);
    // Read before anything is deleted: a zone that cannot be read cannot move either, and would be lost.
    const FailureWatch reading(*this);
    const Found found = goTo(zonesPath + "\\" + util::toDecimal(from));
    const auto values = DirValue();
    if (reading.failed() || found != Found::Present) {
        NoteFailure();
        return false;
    }
    goTo(zonesPath);
    const FailureWatch writing(*this);
    DeleteKey(zone);
    // One that stays has its levels still: under another name they would be taken for that zone's.
    if (writing.failed()) return false;
    MakeKey(zone);
    goTo(zonesPath + "\\" + zone);
    if (values)
        for (const ListedValue& value : *values)
            if (value.type == ValueType::String) writeText(value.name, value.text);
    // What could not be written exists in the zone above alone, which must not be overwritten now.
    return !writing.failed();
}

void clsRegistry::DeleteEmptyDomains(const std::string& domainsPath) {
    procedure("clsRegistry.DeleteEmptyDomains", [&] {
        goTo(domainsPath);
        const auto domains = DirKey();
        if (!domains) return;
        for (const std::string& domain : *domains) {
            const Found found = goTo(domainsPath + "\\" + domain);
            const auto keys = CountKeys();
            goTo(domainsPath);
            // Only a key that was seen to be empty: some systems delete a key with everything below it.
            if (found == Found::Present && keys == 0u) DeleteKey(domain);
        }
    });
}

std::string clsRegistry::GetIconForOS() {
    return procedure("clsRegistry.GetIconForOS", [&] {
        return basSystem::QualifyPath(basSystem::GetSystemDir(platform_)) + FallbackIconFile + "#" +
               FallbackIconResource;
    });
}
