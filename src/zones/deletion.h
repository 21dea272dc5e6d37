// Deleting a zone, by which those above it get the next lower number, and what must be so before.
#pragma once

#include <string>

#include "zones/siteMap.h"

namespace zones {

// Why a zone cannot be deleted.
enum class Obstacle {
    None,
    Unreadable,      // a key that would have to move or whose entries would
    NotConsecutive,  // the zones are not numbered 0, 1, 2 ...: deleting takes them by their numbers
    ListedTwice,     // two zones have names that the code page makes one: which of them would be deleted?
};
struct DeletionPlan {
    Obstacle obstacle = Obstacle::None;
    std::string key;  // the full path of the unreadable key, or the name that is listed twice
    SiteMap sites;
};

// Reads everything that deleting `zone` would touch; nothing changes.
DeletionPlan planDeletion(clsRegistry& registry, const std::string& zone);

// Deletes the zone of a plan without obstacle. The sites of each zone that moves go with it; those of the deleted one
// go when `sitesToo` is set and stay under its number otherwise.
void deleteZone(clsRegistry& registry, const std::string& zone, const DeletionPlan& plan, bool sitesToo);

}  // namespace zones
