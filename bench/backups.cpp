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
void runEditor(platform::Platform& platform, const std::string& arguments) {
    platform::Launcher::Process process = 0;
    platform.launcher.start(platform.system.GetWindowsDirectoryA() + "\\regedit.exe", arguments, process);
    WaitForSingleObject(reinterpret_cast<HANDLE>(process), INFINITE);
    platform.launcher.close(process);
}

void forgetBackups(const std::string& folder) {
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((folder + "*.*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do DeleteFileA((folder + found.cFileName).c_str());
    while (FindNextFileA(search, &found));
    FindClose(search);
}

// What must be done at the least: find the files, and read the beginning of each.
void readFirstLines(const std::string& folder) {
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((folder + "*.tvf").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) fail("there are no backups");
    do {
        const HANDLE file = CreateFileA((folder + found.cFileName).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                        OPEN_EXISTING, 0, nullptr);
        char line[512];
        DWORD read = 0;
        ReadFile(file, line, sizeof line, &read, nullptr);
        CloseHandle(file);
    } while (FindNextFileA(search, &found));
    FindClose(search);
}

void listing(Machine& machine, const std::string& folder) {
    std::uint32_t written = 0;
    for (int file = 0; file < Backups; ++file)
        machine.native.files.create(folder + "listed" + std::to_string(file) + ".tvf", "Desc=one of many\r\n", written);
    const auto list = [&](int) {
        backup::Restoration restoration(machine.program);
        frmRestore form(machine.program, restoration);
        const double time = timeOf([&] {
            form.load();
            form.show();
            machine.settle();
        });
        if (form.ListView1.count() != Backups) fail("not all backups are listed");
        form.unload();
        return time;
    };
    const Compared listed = compare(Runs, list, [&](int) { return timeOf([&] { readFirstLines(folder); }); });
    std::printf("listing %d backups: %.3f s, reading their first lines %.3f s\n", Backups, listed.ours, listed.others);
    row("showing 1,000 backups, of the time for reading their first lines", listed.ratio, "", Limit::AtMost, 2);
}

}  // namespace

void importing(Machine& machine, const std::string& file) {
    std::printf("%f\n", timeOf([&] { runEditor(machine.platform, "/s \"" + file + "\""); }));
}

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
            const std::string file = folder + "editor" + std::to_string(run) + ".reg";
            return timeOf([&] { runEditor(program.platform, "/e \"" + file + "\" \"" + zones::ZonesKey + "\""); });
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
