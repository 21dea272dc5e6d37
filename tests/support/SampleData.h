// Registry data as real machines have it, and a reader for registry files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Registry.h"

namespace sample {

// One value; a key without values has one entry of type NoValue.
struct Entry {
    static constexpr platform::RegType NoValue = 0xFFFFFFFF;
    std::string path;  // "HKEY_CURRENT_USER\\Software\\..."
    std::string name;
    platform::RegType type = NoValue;
    platform::Bytes data;
};

// The entries of a "REGEDIT4" file as the registry editor reads them: lines it would not understand are left out.
std::vector<Entry> readRegistryFile(std::string_view text);

// sandbox/browser.reg: level templates, settings tree, mail identities, sites, two added zones, the browser's version.
std::string_view browserFile();

// The zones that come with the browser, and at last any other, with what they are when nobody has changed them.
struct Zone {
    const char *number, *name, *description, *icon;
    std::uint32_t flags, recommended, minimum;
    const char* level;  // the recommended one
};
inline constexpr Zone Zones[] = {
    {"0", "My Computer", "Your computer", "explorer.exe#0100", 33, 65536, 65536, "Low"},
    {"1", "Local intranet", "This zone contains all Web sites that are on your organization's intranet.",
     "shell32.dll#0018", 219, 66816, 65536, "Medium-Low"},
    {"2", "Trusted sites", "This zone contains Web sites that you trust not to damage your computer or data.",
     "inetcpl.cpl#00004480", 71, 65536, 65536, "Low"},
    {"3", "Internet", "This zone contains all Web sites you haven't placed in other zones", "inetcpl.cpl#001313", 1,
     69632, 69632, "Medium"},
    {"4", "Restricted sites", "This zone contains Web sites that could potentially damage your computer or data.",
     "inetcpl.cpl#00004481", 3, 73728, 73728, "High"},
    {"5", nullptr, nullptr, nullptr, 3, 73728, 73728, "High"},
};
// The first five, below the browser's key of zones.
std::vector<Entry> builtInZones();

Entry text(std::string path, std::string name, std::string_view text);  // with its terminating zero
Entry dword(std::string path, std::string name, std::uint32_t number);

}  // namespace sample
