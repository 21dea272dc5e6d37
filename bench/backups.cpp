#include "bench/Windows.h"

#include <windows.h>

#include <psapi.h>

#include "backup/BackupFile.h"
#include "backup/ExportFile.h"
#include "backup/ZoneFileWriter.h"
#include "backup/frmRestore.h"
#include "command/run.h"
#include "ui/PendingEvents.h"
#include "win32/Console.h"
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

// From starting the registry editor, which imports the file, to its end.
void importWithEditor(forms::Context& program, const std::string& file) {
    platform::Launcher::Process process = 0;
    platform::Launcher& launcher = program.platform.launcher;
    launcher.start(program.platform.system.GetWindowsDirectoryA() + "\\regedit.exe", "/s \"" + file + "\"", process);
    WaitForSingleObject(reinterpret_cast<HANDLE>(process), INFINITE);
    launcher.close(process);
}

// Compares two exports on the command line, from which the zones differ that were changed between them.
void comparing(forms::Context& program, const std::string& folder) {
    backUp(program, "before");
    for (int zone = 0; zone < Zones; zone += 10) {
        zones::goToZone(program.registry, std::to_string(zone));
        program.registry.writeNumber("1001", 77);
    }
    backUp(program, "after");
    struct Quiet : win32::Console {
        void print(std::string_view) override {}
    } console;
    const std::string before = folder + "before.reg", after = folder + "after.reg";
    constexpr int Few = 3;
    const Compared compared = compare(
        Few,
        [&](int) {
            return timeOf([&] {
                if (command::run({program.platform}, console, {"diff", "file:" + before, "file:" + after}) !=
                    command::SomethingDiffers)
                    fail("the exports do not differ");
            });
        },
        [&](int) { return timeOf([&] { importWithEditor(program, before); }); });
    std::printf("comparing two exports: %.3f s, the registry editor's import of one %.3f s\n", compared.ours,
                compared.others);
    row("comparing two exports of 1,000 zones, of the registry editor's time for importing one", compared.ratio, "",
        Limit::Below, 0.1);
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
    comparing(program, folder);
    forgetBackups(folder);
    listing(machine, folder);
    forgetBackups(folder);
}

}  // namespace bench
