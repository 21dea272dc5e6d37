#include "bench/Windows.h"

#include <windows.h>

#include <psapi.h>

#include "backup/BackupFile.h"
#include "backup/ExportFile.h"
#include "backup/ZoneFileWriter.h"
#include "backup/frmRestore.h"
#include "ui/PendingEvents.h"
#include "zones/zones.h"

namespace bench {

namespace {

constexpr int Zones = 1000, Settings = 50, Backups = 1000, Runs = 9;

struct WorkingSet {
    double now, peak;  // MB
};

WorkingSet workingSet() {
    PROCESS_MEMORY_COUNTERS counters{};
    const auto ask = reinterpret_cast<BOOL(WINAPI*)(HANDLE, PROCESS_MEMORY_COUNTERS*, DWORD)>(
        reinterpret_cast<void*>(GetProcAddress(LoadLibraryA("psapi.dll"), "GetProcessMemoryInfo")));
    if (!ask || !ask(GetCurrentProcess(), &counters, sizeof counters)) return {0, 0};
    constexpr double MB = 1024 * 1024;
    return {static_cast<double>(counters.WorkingSetSize) / MB, static_cast<double>(counters.PeakWorkingSetSize) / MB};
}

// What the backup dialog does when its button is pressed.
void backUp(forms::Context& program, const std::string& name) {
    ui::PendingEvents pending(program.platform);
    backup::writeExport(program, name, backup::listZones(program.registry), [&] { pending.handleWhenDue(); });
}

// From starting the registry editor to its end.
void exportWithEditor(forms::Context& program, const std::string& file) {
    platform::Launcher::Process process = 0;
    platform::Launcher& launcher = program.platform.launcher;
    launcher.start(program.platform.system.GetWindowsDirectoryA() + "\\regedit.exe",
                   "/e \"" + file + "\" \"" + zones::ZonesKey + "\"", process);
    WaitForSingleObject(reinterpret_cast<HANDLE>(process), INFINITE);
    launcher.close(process);
}

void forgetBackups(const std::string& folder) {
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((folder + "*.*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do DeleteFileA((folder + found.cFileName).c_str());
    while (FindNextFileA(search, &found));
    FindClose(search);
}

void listing(Machine& machine, const std::string& folder) {
    std::uint32_t written = 0;
    for (int file = 0; file < Backups; ++file)
        machine.native.files.create(folder + "listed" + std::to_string(file) + ".tvf", "Desc=one of many\r\n", written);
    std::vector<double> times;
    for (int run = 0; run < Runs; ++run) {
        backup::Restoration restoration(machine.program);
        frmRestore form(machine.program, restoration);
        times.push_back(timeOf([&] {
            form.load();
            form.show();
            machine.settle();
        }));
        if (form.ListView1.count() != Backups) fail("not all backups are listed");
        form.unload();
    }
    row("listing " + std::to_string(Backups) + " backups", median(times), " s", Limit::Below, 0.3);
}

}  // namespace

void backups(Machine& machine) {
    forms::Context& program = machine.program;
    const std::string folder = backup::folder(program.platform);
    forgetBackups(folder);
    seedZones(Zones, Settings);

    const WorkingSet before = workingSet();
    backUp(program, "first");
    backup::writeZones(program, "first", "measured", backup::listZones(program.registry));
    const WorkingSet after = workingSet();
    row("working set that a backup of 1,000 zones adds",
        std::max(after.peak - std::max(before.now, before.peak), after.now - before.now), " MB", Limit::Below, 2);

    const Compared compared = compare(
        Runs, [&](int run) { return timeOf([&] { backUp(program, "export" + std::to_string(run)); }); },
        [&](int run) {
            return timeOf([&] { exportWithEditor(program, folder + "editor" + std::to_string(run) + ".reg"); });
        });
    std::printf("export of %d zones with %d settings: %.3f s, the registry editor %.3f s\n", Zones, Settings,
                compared.ours, compared.others);
    row("export of 1,000 zones with 50 settings, of the registry editor's time", compared.ratio, "", Limit::AtMost,
        1.1);

    forgetBackups(folder);
    listing(machine, folder);
    forgetBackups(folder);
}

}  // namespace bench
