// The released program, from outside: the very bytes that people get, started as they start them, on a Windows of a
// given age. Arguments: the program, and the version of Windows that Wine is to be.
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "User.h"

namespace {

using namespace smoke;

std::string program, windowsVersion;

constexpr const char* MainTitle = "Tavimor - " TAVIMOR_VERSION " (Public BETA)";
const std::string Zones = "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Zones";

std::string nameOfZone(int zone) {
    char text[256] = "(no name)";
    DWORD size = sizeof text - 1;
    HKEY key = nullptr;
    RegOpenKeyExA(HKEY_CURRENT_USER, (Zones + "\\" + std::to_string(zone)).c_str(), 0, KEY_READ, &key);
    RegQueryValueExA(key, "DisplayName", nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size);
    RegCloseKey(key);
    return text;
}

using Names = std::set<std::string>;

Names filesLike(const std::string& pattern) {
    Names names;
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do names.insert(found.cFileName);
    while (FindNextFileA(search, &found));
    FindClose(search);
    return names;
}

struct Smoke : testing::Test {
    static constexpr const char* Folder = "C:\\Tavimor smoke";
    const std::string backups = std::string(Folder) + "\\Backups\\", logs = std::string(Folder) + "\\Logs\\";
    const std::string commands = std::string(Folder) + "\\TavimorCmd.exe";
    User user;
    HWND window = nullptr, zones = nullptr;

    void SetUp() override {
        clear(backups), clear(logs);
        CreateDirectoryA(Folder, nullptr);
        const std::string copy = std::string(Folder) + "\\Tavimor.exe";
        ASSERT_TRUE(CopyFileA(program.c_str(), copy.c_str(), FALSE)) << program << ": error " << GetLastError();
        const std::string folder = program.substr(0, program.find_last_of("\\/") + 1);
        ASSERT_TRUE(CopyFileA((folder + "TavimorCmd.exe").c_str(), commands.c_str(), FALSE)) << GetLastError();
        user.start(copy);
        window = user.waitForWindow(MainTitle);
        zones = user.control(window, WC_LISTVIEWA);
    }

    // It closes when asked to, of itself, and has met no error on the way.
    void TearDown() override {
        if (HasFailure()) return;
        user.press(VK_F4, VK_MENU);
        EXPECT_EQ(user.exitCode(), 0u);
        EXPECT_EQ(filesLike(logs + "*.log"), Names{}) << "an error log";
    }

    static void clear(const std::string& folder) {
        for (const std::string& name : filesLike(folder + "*.*")) DeleteFileA((folder + name).c_str());
        RemoveDirectoryA(folder.c_str());
    }

    // The exit code of the program without windows.
    DWORD command(const std::string& arguments) {
        std::string line = "\"" + commands + "\" " + arguments;
        STARTUPINFOA start = {};
        start.cb = sizeof start;
        PROCESS_INFORMATION process = {};
        DWORD code = 99;
        if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
            return code;
        WaitForSingleObject(process.hProcess, 60000);
        GetExitCodeProcess(process.hProcess, &code);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        return code;
    }
};

TEST_F(Smoke, OpensAndClosesTheDialogsOfTheEditMenu) {
    const std::map<std::string, DWORD> versions = {{"win98", 0x80000A04}, {"nt40", 4}, {"win2k", 5}};
    EXPECT_EQ(GetVersion() & 0x8000FFFF, versions.at(windowsVersion)) << "Wine is another Windows";
    for (const auto& [key, then, title] : {std::tuple{'A', 0, "Add Zone"}, {'O', VK_RETURN, "OE Security Zone"}}) {
        user.chooseMenu('E', key);
        if (then) user.press(static_cast<WORD>(then));
        user.waitForWindow(title);
        user.press(VK_ESCAPE);
        user.waitForWindow(MainTitle);
    }
}

TEST_F(Smoke, RenamesAZoneAndBringsItBackFromABackup) {
    user.chooseMenu('F', 'B');
    user.waitForWindow("Backup Security Zones");
    user.type("Before the smoke");
    user.press(VK_RETURN);
    user.waitForWindow(MainTitle);
    const Names written = filesLike(backups + "*.tvf");
    ASSERT_EQ(written.size() + filesLike(backups + "*.reg").size(), 2u);
    const std::string comparing = "diff \"backup:" + *written.begin() + "\"";
    EXPECT_EQ(command(comparing), 0u);

    user.clickItem(zones, 5);
    user.waitFor("zone that was clicked",
                 [&] { return SendMessageA(zones, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED) == 5; });
    const std::string name = nameOfZone(5);
    user.click(user.control(window, "BUTTON", "Edit Zone"));
    const HWND edit = user.waitForWindow("Edit Zone");
    user.click(user.control(edit, "EDIT", name));
    user.press('A', VK_CONTROL);
    user.type("Smoke 5");
    user.click(user.control(edit, "BUTTON", "Apply"));
    user.waitFor("new name in the registry", [] { return nameOfZone(5) == "Smoke 5"; });
    user.press(VK_TAB, VK_CONTROL);
    user.press(VK_TAB, VK_CONTROL);
    user.click(user.control(edit, "BUTTON", "Settings"));
    const HWND settings = user.waitForWindow("Custom Security");
    EXPECT_GT(SendMessageA(user.control(settings, WC_TREEVIEWA), TVM_GETCOUNT, 0, 0), 50);
    user.press(VK_ESCAPE);
    user.waitForWindow("Edit Zone");
    user.press(VK_ESCAPE);
    user.waitForWindow(MainTitle);
    EXPECT_EQ(command(comparing), 1u);

    user.chooseMenu('F', 'R');
    const HWND restore = user.waitForWindow("Preview/Restore Backup");
    user.clickItem(user.control(restore, WC_LISTVIEWA), 0);
    user.waitFor("zones of the backup", [&] { return user.items(restore) == 1 + 7; });
    user.press(VK_RETURN);
    user.waitForWindow(MainTitle);
    user.waitFor("old name in the registry", [&] { return nameOfZone(5) == name; });
    user.waitFor("restored list", [&] { return user.items(window) == 7; });
    EXPECT_EQ(command(comparing), 0u);
}

}  // namespace

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    if (count != 3) return 2;
    program = arguments[1], windowsVersion = arguments[2];
    return RUN_ALL_TESTS();
}
