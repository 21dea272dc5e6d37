// Measures on the real system what the user waits for, beside what the registry editor takes for the same.
#include <windows.h>

#include <chrono>
#include <cstdio>

#include "backup/ExportFile.h"
#include "backup/ZoneFile.h"
#include "backup/frmRestore.h"
#include "win32/Services.h"

// clang-format off
#include <psapi.h>
// clang-format on

namespace {

constexpr int Zones = 1000, Settings = 50, Backups = 1000;

double now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double workingSet() {
    PROCESS_MEMORY_COUNTERS counters{};
    const auto ask = reinterpret_cast<BOOL(WINAPI*)(HANDLE, PROCESS_MEMORY_COUNTERS*, DWORD)>(
        reinterpret_cast<void*>(GetProcAddress(LoadLibraryA("psapi.dll"), "GetProcessMemoryInfo")));
    if (!ask || !ask(GetCurrentProcess(), &counters, sizeof counters)) return 0;
    return static_cast<double>(counters.WorkingSetSize) / (1024 * 1024);
}

void seed(Program& program) {
    for (int zone = 0; zone < Zones; ++zone) {
        HKEY key = nullptr;
        const std::string path = std::string(zones::ZonesKey).substr(18) + "\\" + std::to_string(1000 + zone);
        RegCreateKeyA(HKEY_CURRENT_USER, path.c_str(), &key);
        for (DWORD setting = 0; setting < Settings; ++setting) {
            const std::string name = std::to_string(1200 + setting);
            RegSetValueExA(key, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&setting), sizeof setting);
        }
        RegCloseKey(key);
    }
    zones::goToZones(program.registry);
}

double ofExport(Program& program, const std::string& name, const std::function<void()>& afterValue) {
    const double start = now();
    backup::writeExport(program, name, afterValue);
    return now() - start;
}

double ofEditor(Program& program, const std::string& file) {
    const double start = now();
    platform::Launcher::Process process = 0;
    platform::Launcher& launcher = program.platform.launcher;
    launcher.start(program.platform.system.GetWindowsDirectoryA() + "\\regedit.exe",
                   "/e \"" + file + "\" \"" + zones::ZonesKey + "\"", process);
    while (process && launcher.running(process)) Sleep(5);
    launcher.close(process);
    return now() - start;
}

}  // namespace

int main() {
    win32::Services services;
    platform::Platform platform = services.platform();
    Program program(platform);
    seed(program);
    const std::string folder = services.system.programFolder() + "\\Backups\\";

    const double before = workingSet();
    double ours = 1e9, silent = 1e9, editors = 1e9;
    for (int run = 0; run < 2; ++run) {
        const std::string name = "export" + std::to_string(run);
        ours = std::min(ours, ofExport(program, name, [&] { platform.desktop.doEvents(); }));
        silent = std::min(silent, ofExport(program, name + "silent", [] {}));
        editors = std::min(editors, ofEditor(program, folder + "editor.reg"));
    }
    backup::writeZones(program, "export0", "measured");
    std::printf("export of %d zones with %d settings: %.2f s, the registry editor %.2f s, ratio %.2f\n", Zones,
                Settings, ours, editors, ours / editors);
    std::printf("without handling messages meanwhile: %.2f s, ratio %.2f\n", silent, silent / editors);
    std::printf("working set: %.1f MB before the backups, %.1f MB after\n", before, workingSet());

    std::uint32_t written = 0;
    for (int file = 0; file < Backups; ++file)
        services.files.create(folder + "listed" + std::to_string(file) + ".tvf", "Desc=one of many\r\n", written);
    frmRestore form(program);
    const double start = now();
    form.load();
    std::printf("listing %d backups: %.2f s\n", form.ListView1.count(), now() - start);
    form.unload();
    return 0;
}
