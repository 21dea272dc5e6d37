#include <gtest/gtest.h>

#include "app/basMain.h"
#include "app/frmMain.h"
#include "support/TestSystem.h"

namespace {

const std::string AppPaths =
    "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\IEXPLORE.EXE";

struct StartUp : testing::Test {
    StartUp() {
        system_.seedZones();
        system_.seedModules();
        system_.setText(AppPaths, "Path", "C:\\Program Files\\Internet Explorer;");
    }
    void start(const std::string& message) {
        running_.emplace();
        if (!message.empty()) system_.desktop.expectMessage(message);
        basMain::Main(system_.platform(), *running_);
        system_.desktop.settle();
    }
    TestSystem system_;
    std::optional<basMain::Running> running_;
};

}  // namespace

TEST_F(StartUp, DependsOnTheBrowsersMajorVersion) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "old browser"},   {"4.72.3110.8", "old browser"},   {"5.00.2614.3500", ""},
        {"6.0.2800.1106", ""}, {"7.0.5730.11", "new browser|7"}, {"11.0.9600.16428", "new browser|11"}};
    for (const auto& [version, message] : cases) {
        SCOPED_TRACE(version);
        system_.setBrowserVersion(version);
        start(message);
        EXPECT_EQ(running_->window && running_->window->shown(), *version == '5');
    }
}

TEST_F(StartUp, NeedsABrowserThatIsRegistered) {
    system_.setBrowserVersion("5.00.2614.3500");
    for (const bool key : {true, false}) {
        system_.deleteTree(AppPaths);
        if (key) system_.setText(AppPaths, "Other", "x");
        start("no browser");
        EXPECT_FALSE(running_->window);
    }
}
