#include <gtest/gtest.h>

#include "support/TestSystem.h"

TEST(TestSystem, SeedsWhatAMachineHas) {
    TestSystem system;
    EXPECT_FALSE(system.exists("HKEY_CURRENT_USER\\Identities"));
    system.seedZones();
    system.seedBrowser();
    system.seedModules();
    EXPECT_EQ(system.keys("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Zones"),
              (std::vector<std::string>{"0", "1", "2", "3", "4", "5", "6"}));
    EXPECT_EQ(system.text("HKEY_CURRENT_USER\\Identities\\{AAAAAAAA-BBBB-CCCC-DDDD-EEEEEEEEEEEE}", "Username"),
              "Second \"B\" user");
    EXPECT_EQ(system.modules.countIcons("inetcpl.cpl"), 3u);
    platform::LibraryVersion version;
    EXPECT_EQ(system.platform().browser.DllGetVersion(version), platform::Success);
    EXPECT_EQ(version.build, 2614u);
}
