// Measures on the real system what the user waits for, beside something that does no more than must be done.
#include "bench/Windows.h"

#include <windows.h>

#include "zones/zones.h"

namespace bench {

namespace {

const std::string ZonesPath = std::string(zones::ZonesKey).substr(sizeof "HKEY_CURRENT_USER");

void setText(HKEY key, const char* name, const std::string& text) {
    RegSetValueExA(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>(text.size() + 1));
}

}  // namespace

void forgetZones() {
    HKEY key = nullptr;
    if (RegCreateKeyA(HKEY_CURRENT_USER, ZonesPath.c_str(), &key) != ERROR_SUCCESS) return;
    char name[256];
    while (RegEnumKeyA(key, 0, name, sizeof name) == ERROR_SUCCESS && RegDeleteKeyA(key, name) == ERROR_SUCCESS) {}
    RegCloseKey(key);
}

void seedZones(int zones, int settings) {
    forgetZones();
    for (int zone = 0; zone < zones; ++zone) {
        HKEY key = nullptr;
        const std::string number = std::to_string(zone);
        RegCreateKeyA(HKEY_CURRENT_USER, (ZonesPath + "\\" + number).c_str(), &key);
        setText(key, "DisplayName", "Zone " + number);
        setText(key, "Description", "A zone for measuring");
        setText(key, "Icon", "shell32.dll#" + std::to_string(1 + zone % 40));
        for (DWORD setting = 0; setting < static_cast<DWORD>(settings) - 3; ++setting)
            RegSetValueExA(key, std::to_string(1200 + setting).c_str(), 0, REG_DWORD,
                           reinterpret_cast<const BYTE*>(&setting), sizeof setting);
        RegCloseKey(key);
    }
}

}  // namespace bench

// usage: tavimor-bench [start|backups|zones|icons|dialogs]...    all of them when none is named
//        tavimor-bench import FILE
int main(int count, char** names) {
    const auto wanted = [&](const char* name) {
        return count < 2 ||
               std::any_of(names + 1, names + count, [&](const char* n) { return lstrcmpA(n, name) == 0; });
    };
    if (count == 3 && lstrcmpA(names[1], "import") == 0) {
        bench::Machine machine;
        bench::importing(machine, names[2]);
    } else {
        if (wanted("start")) bench::start();
        bench::Machine machine;
        // First, while the working set is that of a program that has done nothing.
        if (wanted("backups")) bench::backups(machine);
        if (wanted("zones")) bench::zoneList(machine);
        if (wanted("icons")) bench::iconSelector(machine);
        if (wanted("dialogs")) bench::dialogs(machine);
    }
    bench::forgetZones();
    return 0;
}
