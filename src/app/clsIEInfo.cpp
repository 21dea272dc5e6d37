#include "app/clsIEInfo.h"

#include "util/numbers.h"
#include "util/procedure.h"

using namespace platform;

bool clsIEInfo::IsAvailable() const {
    return procedure("clsIEInfo.IsAvailable [Get]", [&] {
        Registry& registry = platform_.registry;
        HKey key = 0;
        registry.RegOpenKeyExA(HKeyLocalMachine,
                               "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\IEXPLORE.EXE", KeyQueryValue,
                               key);
        // A key that is not there leaves a handle of 0, and asking that one leaves the size at 0.
        RegType type = RegNone;
        std::uint32_t size = 0;
        registry.RegQueryValueExA(key, "Path", type, nullptr, size);
        if (key) registry.RegCloseKey(key);
        return size >= 1;
    });
}

std::int32_t clsIEInfo::Version() const {
    return procedure("clsIEInfo.Version [Get]", [&] { return static_cast<std::int32_t>(ask().major); });
}

std::string clsIEInfo::FullVersion() const {
    return procedure("clsIEInfo.FullVersion [Get]", [&] {
        const LibraryVersion version = ask();
        return util::toDecimal(version.major) + "." + util::toDecimal(version.minor) + "." +
               util::toDecimal(version.build);
    });
}

LibraryVersion clsIEInfo::ask() const {
    LibraryVersion version;
    return platform_.browser.DllGetVersion(version) == Success ? version : LibraryVersion();
}
