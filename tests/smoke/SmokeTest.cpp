// The released program, from outside: the very bytes that people get, started as they start them, on a Windows of a
// given age. Arguments: the program, and the version of Windows that Wine is to be.
#include <gtest/gtest.h>

#include <process.h>

#include <filesystem>
#include <map>
#include <set>

#include "User.h"

namespace {

using namespace smoke;

std::string program, windowsVersion;

constexpr const char* MainTitle = "Tavimor - " TAVIMOR_VERSION " (Public BETA)";
using Names = std::set<std::string>;

Names filesIn(const std::string& folder) {
    Names names;
    std::error_code absent;
    for (const auto& file : std::filesystem::directory_iterator(folder, absent))
        names.insert(file.path().filename().string());
    return names;
}

TEST(Smoke, OpensItsDialogsRenamesAZoneAndBringsItBackFromABackup) {
    const std::map<std::string, DWORD> versions = {{"win98", 0x80000A04}, {"nt40", 4}, {"win2k", 5}};
    EXPECT_EQ(GetVersion() & 0x8000FFFF, versions.at(windowsVersion)) << "Wine is another Windows";
    const std::string folder = "C:\\Tavimor smoke\\", copy = folder + "Tavimor.exe",
                      commands = folder + "TavimorCmd.exe";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    std::filesystem::copy_file(program, copy);
    std::filesystem::copy_file(std::filesystem::path(program).replace_filename("TavimorCmd.exe"), commands);
    User user;
    user.start(copy);
    const HWND window = user.waitForWindow(MainTitle);
    for (const auto& [key, then, title] : {std::tuple{'A', 0, "Add Zone"}, {'O', VK_RETURN, "OE Security Zone"}}) {
        user.chooseMenu('E', key);
        if (then) user.press(static_cast<WORD>(then));
        user.waitForWindow(title);
        user.press(VK_ESCAPE);
        user.waitForWindow(MainTitle);
    }

    user.chooseMenu('F', 'B');
    user.waitForWindow("Backup Security Zones");
    user.type("Before the smoke");
    user.press(VK_RETURN);
    user.waitForWindow(MainTitle);
    const Names written = filesIn(folder + "Backups");
    ASSERT_EQ(written.size(), 2u);
    // What the program without windows finds changed: 0 nothing, 1 something.
    const std::string backup = "\"backup:" + *written.rbegin() + "\"";
    const auto changes = [&] {
        return _spawnl(_P_WAIT, commands.c_str(), "TavimorCmd", "diff", backup.c_str(), nullptr);
    };
    EXPECT_EQ(changes(), 0);

    const HWND zones = user.control(window, WC_LISTVIEWA);
    user.click(zones);
    user.press(VK_END);
    user.waitFor("choice of the last zone",
                 [&] { return SendMessageA(zones, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED) == 6; });
    user.click(user.control(window, "BUTTON", "Edit Zone"));
    const HWND edit = user.waitForWindow("Edit Zone");
    user.click(user.control(edit, "EDIT"));
    user.press('A', VK_CONTROL);
    user.type("Smoke 6");
    user.click(user.control(edit, "BUTTON", "Apply"));
    user.waitFor("change", [&] { return changes() == 1; });
    user.press(VK_TAB, VK_CONTROL);
    user.press(VK_TAB, VK_CONTROL);
    user.click(user.control(edit, "BUTTON", "Settings"));
    const HWND settings = user.waitForWindow("Custom Security");
    EXPECT_GT(SendMessageA(user.control(settings, WC_TREEVIEWA), TVM_GETCOUNT, 0, 0), 50);
    user.press(VK_ESCAPE);
    user.waitForWindow("Edit Zone");
    user.press(VK_ESCAPE);
    user.waitForWindow(MainTitle);

    user.chooseMenu('F', 'R');
    const HWND restore = user.waitForWindow("Preview/Restore Backup");
    user.click(user.control(restore, WC_LISTVIEWA));
    user.press(VK_HOME);
    user.press(VK_RETURN);
    user.waitForWindow(MainTitle);
    user.waitFor("end of the change", [&] { return changes() == 0; });

    user.press(VK_F4, VK_MENU);
    EXPECT_EQ(user.exitCode(), 0u);
    EXPECT_EQ(filesIn(folder + "Logs"), Names{});
}

}  // namespace

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    if (count != 3) return 2;
    program = arguments[1], windowsVersion = arguments[2];
    return RUN_ALL_TESTS();
}
