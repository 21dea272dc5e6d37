#include <gtest/gtest.h>

#include "app/basMain.h"
#include "app/clsIEInfo.h"
#include "app/frmMain.h"
#include "support/TestSystem.h"

namespace {

const std::string AppPaths =
    "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\IEXPLORE.EXE";

class StartUp : public testing::Test {
protected:
    StartUp() {
        system_.seedZones();
        system_.seedModules();
        system_.setText(AppPaths, "Path", "C:\\Program Files\\Internet Explorer;");
    }
    TestSystem system_;
};

}  // namespace

TEST_F(StartUp, DependsOnTheBrowsersMajorVersion) {
    const std::string newer = "This version of Tavimor might not work with Internet Explorer version ";
    const std::string look = ".x\r\n\r\nPlease check for an updated version of Tavimor.";
    const struct {
        const char* version;
        std::string message;
        bool runs;
    } cases[] = {
        {"", "Sorry, you need Internet Explorer version 5.x to continue.", false},
        {"4.72.3110.8", "Sorry, you need Internet Explorer version 5.x to continue.", false},
        {"5.00.2614.3500", "", true},
        {"6.0.2800.1106", "", false},
        {"11.0.9600.16428", newer + "11" + look, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.version);
        system_.setBrowserVersion(c.version);
        if (!c.message.empty()) system_.desktop.expectMessage(c.message, ui::Answer::Ok);
        basMain::Running running;
        basMain::Main(system_.platform(), running);
        EXPECT_EQ(running.window != nullptr, c.runs);
        EXPECT_TRUE(!running.window || running.window->shown());
        system_.desktop.settle();
    }
}

TEST_F(StartUp, NeedsABrowserThatIsRegistered) {
    const std::string none =
        "Internet Explorer is does not seem to be installed.  Please install Internet Explorer first.";
    system_.setBrowserVersion("5.00.2614.3500");
    for (const bool key : {true, false}) {
        system_.deleteTree(AppPaths);
        if (key) system_.setText(AppPaths, "Other", "x");
        system_.desktop.expectMessage(none, ui::Answer::Ok);
        basMain::Running running;
        basMain::Main(system_.platform(), running);
        EXPECT_FALSE(running.window);
    }
}
