#include "bench/Windows.h"

#include <windows.h>

#include <commctrl.h>

#include <cstring>

namespace bench {

namespace {

struct Shown {
    DWORD process;
    int items;
    HWND window = nullptr;
};

BOOL CALLBACK findList(HWND child, LPARAM list) {
    char name[64] = "";
    GetClassNameA(child, name, sizeof name);
    if (lstrcmpiA(name, WC_LISTVIEWA) != 0) return TRUE;
    *reinterpret_cast<HWND*>(list) = child;
    return FALSE;
}

// A visible window of the process whose list has its items and nothing left to paint.
BOOL CALLBACK findPainted(HWND window, LPARAM asked) {
    auto& shown = *reinterpret_cast<Shown*>(asked);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != shown.process || !IsWindowVisible(window)) return TRUE;
    HWND list = nullptr;
    EnumChildWindows(window, findList, reinterpret_cast<LPARAM>(&list));
    if (!list || !IsWindowVisible(list) || SendMessageA(list, LVM_GETITEMCOUNT, 0, 0) != shown.items) return TRUE;
    if (GetUpdateRect(list, nullptr, FALSE) || GetUpdateRect(window, nullptr, FALSE)) return TRUE;
    shown.window = window;
    return FALSE;
}

// From starting a program to its window's list being painted with `items` items. Ends the program.
double startOf(const std::string& program, int items) {
    std::string commandLine = "\"" + program + "\"";
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started = {};
    const double begin = seconds();
    if (!CreateProcessA(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &started)) {
        fail(program + " cannot be started: code " + std::to_string(GetLastError()));
    }
    // A program that waits for input has painted everything.
    WaitForInputIdle(started.hProcess, 10000);
    Shown shown{started.dwProcessId, items};
    while (EnumWindows(findPainted, reinterpret_cast<LPARAM>(&shown)), !shown.window) {
        if (seconds() - begin > 20) {
            TerminateProcess(started.hProcess, 1);
            fail(program + " does not show " + std::to_string(items) + " items");
        }
        Sleep(1);
    }
    const double time = seconds() - begin;
    PostMessageA(shown.window, WM_CLOSE, 0, 0);
    WaitForSingleObject(started.hProcess, 10000);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return time;
}

// The program starts for version 5 of the browser alone.
void seedBrowser() {
    const struct {
        const char *key, *value, *text;
    } values[] = {{"Software\\Microsoft\\Internet Explorer", "Version", "5.00.2614.3500"},
                  {"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\IEXPLORE.EXE", "Path", "C:\\"}};
    for (const auto& v : values) {
        HKEY key = nullptr;
        RegCreateKeyA(HKEY_LOCAL_MACHINE, v.key, &key);
        RegSetValueExA(key, v.value, 0, REG_SZ, reinterpret_cast<const BYTE*>(v.text),
                       static_cast<DWORD>(std::strlen(v.text) + 1));
        RegCloseKey(key);
    }
}

}  // namespace

void start() {
    constexpr int Zones = 5, Settings = 30, Runs = 31;
    seedBrowser();
    seedZones(Zones, Settings);
    const std::string folder = win32::System().programFolder() + "\\";
    const std::string ours = folder + "Tavimor.exe", bare = folder + "bare-list.exe";
    startOf(ours, Zones);
    startOf(bare, Zones);
    const Compared started = compare(
        Runs, [&](int) { return startOf(ours, Zones); }, [&](int) { return startOf(bare, Zones); });
    std::printf("start: %.3f s, the bare program %.3f s\n", started.ours, started.others);
    row("start to the window with five zones painted, of the time for a bare program with the same controls",
        started.ratio, "", Limit::AtMost, 1.25);
}

}  // namespace bench
