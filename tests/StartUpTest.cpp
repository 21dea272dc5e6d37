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
        if (!message.empty()) system_.desktop.expectMessage(message, ui::Answer::Ok);
        basMain::Main(system_.platform(), *running_);
        system_.desktop.settle();
    }
    TestSystem system_;
    std::optional<basMain::Running> running_;
};

}  // namespace

TEST_F(StartUp, DependsOnTheBrowsersMajorVersion) {
    const std::string old = "Sorry, you need Internet Explorer version 5.x to continue.";
    const std::string newer =
        "This version of Tavimor might not work with Internet Explorer version 11.x\r\n\r\n"
        "Please check for an updated version of Tavimor.";
    const std::pair<const char*, std::string> cases[] = {
        {"", old}, {"4.72.3110.8", old}, {"5.00.2614.3500", ""}, {"6.0.2800.1106", ""}, {"11.0.9600.16428", newer}};
    for (const auto& [version, message] : cases) {
        SCOPED_TRACE(version);
        system_.setBrowserVersion(version);
        start(message);
        EXPECT_EQ(running_->window && running_->window->shown(), *version == '5');
    }
}

TEST_F(StartUp, NeedsABrowserThatIsRegistered) {
    const std::string none =
        "Internet Explorer is does not seem to be installed.  Please install Internet Explorer first.";
    system_.setBrowserVersion("5.00.2614.3500");
    for (const bool key : {true, false}) {
        system_.deleteTree(AppPaths);
        if (key) system_.setText(AppPaths, "Other", "x");
        start(none);
        EXPECT_FALSE(running_->window);
    }
}
