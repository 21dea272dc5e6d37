// The browser's site map of the user: which sites, addresses and protocols were put into which zone.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class clsRegistry;

namespace zones {

// A DWORD that names a zone: of a domain or a host part below it, of a range of addresses, or the default of a
// protocol.
struct SiteEntry {
    std::string key;    // full path
    std::string value;  // the protocol, or "*"
    std::uint32_t zone = 0;
    std::string domain, host;  // "example.com", "www"; empty where the value is not a host part's
};

struct SiteMap {
    std::vector<SiteEntry> entries;
    // The first key that could not be read, whose values are not among the entries. Empty when all could.
    std::string unreadable;
};
SiteMap readSiteMap(clsRegistry& registry);

// Whether anything is in the zone.
bool hasSites(const SiteMap& map, std::uint32_t zone);
// Deletes what is in the zone. A host part goes as a whole, and with it every domain that has no host parts.
void deleteSites(clsRegistry& registry, const SiteMap& map, std::uint32_t zone);
// Puts what is in the zone `from` into the zone below it.
void moveSitesDown(clsRegistry& registry, const SiteMap& map, std::uint32_t from);

}  // namespace zones

namespace basMain {

// The sites of one zone, and their keys.
struct ZoneSites {
    std::vector<std::string> sites;  // "http://www.example.com"
    std::vector<std::string> keys;   // "example.com\www", below the Domains key
};

// The sites of a zone on host parts of domains. Values of a domain itself are not among them.
ZoneSites CheckForDomains(const zones::SiteMap& map, const std::string& zoneNumber);

// Removes the domain keys that have no subkeys, whatever values they hold.
void DeleteEmptyDomains(clsRegistry& registry);

}  // namespace basMain
