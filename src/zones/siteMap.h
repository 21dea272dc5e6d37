// The browser's site map: which sites were put into which zone.
#pragma once

#include <string>
#include <vector>

class clsRegistry;

namespace basMain {

// The sites of one zone, and where they stand.
struct ZoneSites {
    std::vector<std::string> sites;  // "http://www.example.com"
    std::vector<std::string> keys;   // "example.com\www", below the Domains key
};

// Finds the sites of a zone: protocol values two levels deep (domain, host part). Values that stand on a domain itself
// are not looked at.
ZoneSites CheckForDomains(clsRegistry& registry, const std::string& zoneNumber);

// Removes the domain keys that have no subkeys, whatever values they hold.
void DeleteEmptyDomains(clsRegistry& registry);

}  // namespace basMain
