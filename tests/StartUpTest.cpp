#include <gtest/gtest.h>

#include "app/basMain.h"
#include "app/frmMain.h"
#include "support/TestSystem.h"

TEST(StartUp, NeedsARegisteredBrowserOfMajorVersion5) {
    const std::string appPaths =
        "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\IEXPLORE.EXE";
    TestSystem system;
    system.seedZones();
    system.seedModules();
    const auto start = [&](const std::string& version, const char* message) {
        SCOPED_TRACE(version);
        system.setBrowserVersion(version);
        basMain::Running running;
        if (*message) system.desktop.expectMessage(message);
        basMain::Main(system.platform(), running);
        system.desktop.settle();
        return running.window && running.window->shown();
    };
    EXPECT_FALSE(start("5.00.2614.3500", "no browser"));
    system.setText(appPaths, "Other", "x");
    EXPECT_FALSE(start("5.00.2614.3500", "no browser"));
    system.setText(appPaths, "Path", "C:\\Program Files\\Internet Explorer;");
    const std::pair<const char*, const char*> cases[] = {
        {"", "old browser"},   {"4.72.3110.8", "old browser"},   {"5.00.2614.3500", ""},
        {"6.0.2800.1106", ""}, {"7.0.5730.11", "new browser|7"}, {"11.0.9600.16428", "new browser|11"}};
    for (const auto& [version, message] : cases) EXPECT_EQ(start(version, message), *version == '5');
}
