// Where the browser keeps its zones, and what the values of a zone mean.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

enum class Found;
class clsRegistry;

namespace zones {

// The per-user zones: one subkey a zone, named by its number in decimal.
inline constexpr const char* ZonesKey =
    "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Zones";
// The site map, with a DWORD zone number for each protocol: on a domain or a host part below it, on a range of
// addresses, and for all sites of a protocol that stand nowhere else.
inline constexpr const char* DomainsKey =
    "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\ZoneMap\\Domains";
inline constexpr const char* RangesKey =
    "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\ZoneMap\\Ranges";
inline constexpr const char* ProtocolDefaultsKey =
    "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\ZoneMap\\ProtocolDefaults";

// A value of ZonesKey itself: how often the browser has repaired the zones.
inline constexpr const char* SelfHealCount = "SelfHealCount";

// The values of a zone's key that mean something to the program; the others are its security settings.
namespace value {
inline constexpr const char* DisplayName = "DisplayName";
inline constexpr const char* Description = "Description";
inline constexpr const char* Icon = "Icon";
inline constexpr const char* Flags = "Flags";
inline constexpr const char* CurrentLevel = "CurrentLevel";
inline constexpr const char* MinLevel = "MinLevel";
inline constexpr const char* RecommendedLevel = "RecommendedLevel";
}  // namespace value

// Zones 0 to 4 are the browser's own.
bool isBuiltIn(std::string_view zone);
// The number that a zone's key name is, when it is one as the system writes it: "10", but not "010", "abc" or "1 ".
std::optional<std::uint32_t> numberOf(std::string_view zone);

// Security levels (URLTEMPLATE numbers of urlmon.h). In the order of the level boxes; Custom is never offered.
struct Level {
    const char* name;
    std::uint32_t number;
};
inline constexpr std::array<Level, 5> Levels{{
    {"High", 0x12000},
    {"Medium", 0x11000},
    {"Medium-Low", 0x10500},
    {"Low", 0x10000},
    {"Custom", 0},
}};
inline constexpr int OfferedLevels = 4;
// Shown where a zone has none: only the current level may be custom.
inline constexpr const char* MissingLevel = "**Missing**";

// Level name to number and number to level name, as text; "" for anything else. Exact: "high" and "073728" are nothing.
std::string GetSecurity(const std::string& level);
// The index in Levels of a stored level number; nothing when it is none of the five.
std::optional<int> levelIndex(std::uint32_t number);

// Zone flags (ZAFLAGS_ of urlmon.h), bit i at index i, with the caption of the check box that stands for it.
inline constexpr std::array<const char*, 8> FlagCaptions{
    "Allow changes to custom settings",
    "Allow users to add Web sites to this zone",
    "Require verified Web sites (https protocol)",
    "Include Web sites that bypass the proxy server",
    "Include Web sites not listed in other zones",
    "Do not show security zone in Internet Properties (default setting for My Computer)",
    "Show the Requires Server Verification dialog box",
    "Treat Universal Naming Connections (UNCs) as intranet connections ",
};
inline constexpr std::uint32_t MissingFlags = 3;  // what a zone without "Flags" counts as

// Moves the session to ZonesKey, or to one zone below it.
Found goToZones(clsRegistry& registry);
Found goToZone(clsRegistry& registry, const std::string& zone);

}  // namespace zones
