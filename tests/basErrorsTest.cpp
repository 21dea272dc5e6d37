#include "errors/basErrors.h"

#include <new>

#include "support/Core.h"
#include "zones/zones.h"

namespace {

using namespace basErrors;

const std::string Stars(60, '*');

class Errors : public testing::Test, protected Core {
protected:
    std::string logName = "Logs\\ErrorLog-3-9-2000.log";
    std::string log() { return system.readFile(logName).value_or("no log"); }
    static std::string lines(const std::vector<std::string>& all) {
        std::string text;
        for (const std::string& line : all) text += line + "\r\n";
        return text;
    }
    static std::string trace() {
        std::string text;
        for (const char* name : ProcStack) text += std::string(name) + " ";
        return text;
    }
    static int count(const std::string& text, const std::string& part) {
        int found = 0;
        for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++found;
        return found;
    }
    void fail(const char* name) {
        procedure(name, [] { throw Error(5, "Test", "It does not work."); });
    }
};

TEST_F(Errors, AProcedureThatFailedStaysOnTheTrace) {
    procedure("a.Q", [&] {
        EXPECT_EQ(procedure("a.Ok", [] { return 7; }), 7);
        EXPECT_EQ(trace(), "a.Q ");
        expectError("It does not work.");
        EXPECT_EQ(procedure("a.P", []() -> std::string { throw Error(5, "Test", "It does not work."); }), "");
        EXPECT_EQ(trace(), "a.Q a.P ");
        procedure("a.R", [&] { EXPECT_EQ(trace(), "a.Q a.P a.R "); });
    });
    // The name that goes is the last one, whosever it is.
    EXPECT_EQ(trace(), "a.Q ");
    EXPECT_EQ(ProcCount, 1);
}

TEST_F(Errors, EveryErrorHasANumberAndATextForPeople) {
    const struct {
        std::function<void()> raise;
        std::uint32_t number;
        const char* text;
    } cases[] = {
        {[] { throw Error(0x80040402, "Icons", "No icon."); }, 0x80040402, "No icon."},
        {[] { throw std::bad_alloc(); }, NumberOutOfMemory, "Out of memory."},
        {[] { std::vector<int>().at(1); }, NumberOutOfRange, "Something was asked for that does not exist."},
        {[] { std::string().reserve(std::string::npos); }, NumberOutOfMemory, "A text or list is too long."},
        {[] { throw std::logic_error("no such thing"); }, NumberInternal, "Internal error: no such thing"},
    };
    for (const auto& c : cases) {
        expectError(c.text);
        procedure("a.Raise", c.raise);
        system.desktop.settle();
        EXPECT_EQ(Err.number, c.number);
        EXPECT_EQ(Err.description, c.text);
        EXPECT_FALSE(Err.source.empty());
        EXPECT_EQ(ErrLine, "0");
        EXPECT_FALSE(errorPending());
    }
    procedure("a.None", [] { throw Error(0, "Test", "No number, no error."); });
}

TEST_F(Errors, TheEndOfTheProgramPassesEveryTrap) {
    const auto end = [] { procedure("a.Inner", [] { throw ui::EndProgram(); }); };
    EXPECT_THROW(procedure("a.Outer", end), ui::EndProgram);
    EXPECT_EQ(Err.number, 0u);
}

TEST_F(Errors, ADaysFirstReportBeginsItsLog) {
    system.setBrowserVersion("");
    system.setText("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Internet Explorer", "Version", "5.00.2614.3500");
    procedure("frmMain.FillListView", [&] {
        expectError("It does not work.");
        fail("clsRegistry.ValueOf [Get]");
    });
    EXPECT_EQ(log(), lines({
                         Stars,
                         "Error log for: Tavimor - Created: 03-09-2000",
                         Stars,
                         "",
                         Stars,
                         "General Info",
                         Stars,
                         "Application:     Tavimor",
                         "Version:     5.0.32",
                         "",
                         "Operating System:     Not implemented",
                         "",
                         "Internet Explorer Info:",
                         "------------------------------",
                         "Version:     5.00.2614.3500",
                         "Build:     No setting",
                         "Customized Version:     Not a custom version",
                         "Updates:     No setting",
                         Stars,
                         "End General Info",
                         Stars,
                         "",
                         Stars,
                         "Start Error Information",
                         Stars,
                         "Time:     14:05:07",
                         "Module:     clsRegistry",
                         "Procedure:     ValueOf [Get]",
                         "Line Number:     0",
                         "Error Number:     5",
                         "Error Description:     It does not work.",
                         Stars,
                         "End Error Information",
                         Stars,
                         "Start Stack Dump",
                         Stars,
                         "clsRegistry.ValueOf [Get]",
                         "frmMain.FillListView",
                         Stars,
                         "End Stack Dump",
                         Stars,
                         "",
                     }));
}

TEST_F(Errors, ADayHasOneLogWithOneHeader) {
    for (const char* name : {"a.First", "a.Second"}) {
        expectError("It does not work.");
        fail(name);
    }
    EXPECT_EQ(system.files.watch.calls("append"), 2);
    EXPECT_EQ(count(log(), "General Info\r\n"), 2);  // its start and its end
    EXPECT_EQ(count(log(), "Start Error Information"), 2);
    EXPECT_EQ(count(log(), "\r\na.First\r\n"), 2) << "stale in the second dump";

    system.system.now = {2001, 12, 31, 0, 0, 9};
    logName = "Logs\\ErrorLog-12-31-2001.log";
    expectError("It does not work.");
    fail("a.Third");
    EXPECT_EQ(count(log(), "Created: 12-31-2001\r\n"), 1);
    EXPECT_EQ(count(log(), "Time:     00:00:09\r\n"), 1);
    EXPECT_EQ(system.filesIn(system.path("Logs")).size(), 2u);
}

TEST_F(Errors, ReportingLeavesSessionAndTokenizerWhereTheyWere) {
    system.setText(TestsKey, "Name", "value");
    registry.cD(TestsKey);
    strings.Initialise("a,b", ",");
    const std::string before = registry.CurrentKey();
    expectError("It does not work.");
    fail("a.P");
    EXPECT_EQ(registry.CurrentKey(), before);
    EXPECT_EQ(registry.ValueOf("Name")->text, "value");
    EXPECT_EQ(strings.ElementAsString(2), "b");
    EXPECT_EQ(system.registry.openHandles(), 1u);
}

// Folder, file, disk: whatever refuses, the error itself is shown, once, and says that it could not be logged.
TEST_F(Errors, ALogThatCannotBeWrittenDoesNotHideTheError) {
    const struct {
        std::function<void()> arrange;
        const char* says;
    } cases[] = {
        {[&] { system.writeFile("Logs", "a file"); }, "Cannot make the folder"},
        {[&] { system.files.watch.failOn("createFolder", 1, platform::AccessDenied); }, "Cannot make the folder"},
        {[&] { system.files.watch.failOn("append", 1, platform::AccessDenied); }, "Cannot write the file"},
        {[&] { system.files.watch.failOn("append", 1, platform::DiskFull); }, "Cannot write the file"},
    };
    for (const auto& c : cases) {
        c.arrange();
        system.desktop.expectForm<frmError>([&](frmError& dialog) {
            EXPECT_EQ(dialog.lblErrNumber.caption(), "5");
            EXPECT_EQ(dialog.lblErrDescription.caption(), "It does not work.");
            EXPECT_NE(dialog.lblInfo(6).caption().find(c.says), std::string::npos) << dialog.lblInfo(6).caption();
            EXPECT_NE(dialog.lblInfo(6).caption().find("Logs"), std::string::npos);
            dialog.cmdContinue.click();
        });
        fail("a.P");
        system.desktop.settle();
        EXPECT_EQ(Err.description, "It does not work.");
        system.platform().files.remove(system.path("Logs"));
    }
}

TEST_F(Errors, AnErrorWhileTheDialogIsOpenGoesToTheLogAlone) {
    system.desktop.expectForm<frmError>([&](frmError& dialog) {
        EXPECT_TRUE(errorPending());
        fail("frmMain.tmrWatch_Timer");
        dialog.cmdContinue.click();
    });
    fail("a.P");
    EXPECT_EQ(count(log(), "Start Error Information"), 2);
    EXPECT_EQ(count(log(), "Procedure:     tmrWatch_Timer"), 1);
}

TEST_F(Errors, WhatFailsWhileReportingIsDropped) {
    reporting.exclamation = [&] {
        fail("basMain.DrawExclamation");
        return ui::Picture();
    };
    expectError("It does not work.");
    fail("a.P");
    EXPECT_EQ(count(log(), "Start Error Information"), 1);
}

TEST_F(Errors, BeforeTheProgramIsSetUpAnErrorIsOnlyRecorded) {
    reporting = {};
    fail("a.P");
    EXPECT_EQ(Err.number, 5u);
}

}  // namespace
