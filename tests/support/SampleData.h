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

// The five zones that come with the browser, below zones::ZonesKey.
std::vector<Entry> builtInZones();

Entry text(std::string path, std::string name, std::string_view text);  // with its terminating zero
Entry dword(std::string path, std::string name, std::uint32_t number);

}  // namespace sample
