#include "errors/ErrorReporter.h"
#include "errors/errorLog.h"
#include "platform/SystemError.h"
#include "util/Error.h"
#include "util/procedure.h"
#include "util/trace.h"

#include <new>

#include "support/Core.h"
#include "support/texts.h"

namespace {

using namespace basErrors;
using namespace errors;
using namespace util;

struct Errors : testing::Test, Core {
    std::string logName = "Logs\\ErrorLog-3-9-2000.log";
    static std::string trace() {
        std::string text;
        for (const char* name : ProcStack) text += std::string(name) + " ";
        return text;
    }
    int count(const std::string& part) {
        const std::string text = system.readFile(logName).value_or("no log");
        int found = 0;
        for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++found;
        return found;
    }
    void failUnseen(const char* name) {
        procedure(name, [] { throw Error(5, "Test", "It does not work."); });
    }
    void fail(const char* name) {
        expectError("It does not work.");
        failUnseen(name);
        system.desktop.settle();
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
    EXPECT_EQ(trace(), "a.Q ") << "the name that goes is the last one, whosever it is";
}

TEST_F(Errors, EveryErrorHasANumberAndATextForPeople) {
    const std::tuple<std::function<void()>, std::uint32_t, const char*> cases[] = {
        {[] { throw Error(0x80040402, "Icons", "No icon."); }, 0x80040402, "No icon."},
        {[] { throw platform::SystemError(1450, "No room."); }, 1450, "No room."},
        {[] { throw std::bad_alloc(); }, NumberOutOfMemory, "Out of memory."},
        {[] { std::vector<int>().at(1); }, NumberOutOfRange, "Something was asked for that does not exist."},
        {[] { std::string().reserve(std::string::npos); }, NumberOutOfMemory, "A text or list is too long."},
        {[] { throw std::logic_error("no such thing"); }, NumberInternal, "Internal error: no such thing"},
    };
    for (const auto& [raise, number, text] : cases) {
        expectError(text);
        procedure("a.Raise", raise);
        system.desktop.settle();
        EXPECT_EQ(Err.number, number);
        EXPECT_EQ(ErrLine, "0");
    }
    EXPECT_FALSE(errorPending());
    const auto end = [] { procedure("a.Inner", [] { throw ui::EndProgram(); }); };
    EXPECT_THROW(procedure("a.Outer", end), ui::EndProgram) << "no error, and passes every trap";
    stopReporting();
    failUnseen("a.BeforeTheProgramIsSetUp");
    EXPECT_EQ(Err.number, 5u) << "recorded only";
}

TEST_F(Errors, ADaysFirstReportBeginsItsLog) {
    procedure("frmMain.FillListView", [&] { fail("clsRegistry.ValueOf [Get]"); });
    std::string expected;
    for (const std::string& line : texts::linesOf("log")) expected += line.substr(8, line.size() - 9) + "\r\n";
    EXPECT_EQ(system.readFile(logName), expected);
    const std::string browser = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\";
    for (const char* name : {"Version", "Build", "CustomizedVersion"})
        system.setText(browser + "Internet Explorer", name, std::string("A") + name);
    system.setText(browser + "Windows\\CurrentVersion\\Internet Settings", "MinorVersion", ";SP1;");
    system.system.now.day = 10;
    logName = "Logs\\ErrorLog-3-10-2000.log";
    fail("a.P");
    EXPECT_EQ(
        count("AVersion\r\nBuild:     ABuild\r\nCustomized Version:     ACustomizedVersion\r\nUpdates:     ;SP1;"), 1);
}

// What cannot be seen for a moment, or is made by another program in between, is no reason not to log, nor for a second
// header. The session stays where it was.
IN_MEMORY_TEST_F(Errors, ADayHasOneLogWithOneHeader) {
    system.setText(TestsKey, "Name", "value");
    registry.cD(TestsKey);
    fail("a.First");
    fail("a.Second");
    EXPECT_EQ(registry.ValueOf("Name")->text, "value");
    EXPECT_EQ(system.files.watch.calls("append"), 2);
    EXPECT_EQ(count("\r\na.First\r\n"), 2) << "stale in the second dump";
    for (const int call : {1, 2}) {
        system.files.watch.failOn("attributes", call, platform::AccessDenied);
        fail("a.P");
    }
    EXPECT_EQ(count("Start Error Information"), 4);
    EXPECT_EQ(count("General Info\r\n"), 2) << "its start and its end";

    system.system.now = {2001, 12, 31, 0, 0, 9};
    logName = "Logs\\ErrorLog-12-31-2001.log";
    system.files.watch.reset();
    system.files.watch.failOn("attributes", 1, platform::FileNotFound);  // and then another program makes the folder
    fail("a.Third");
    EXPECT_EQ(count("Created: 12-31-2001\r\n"), 1);
    EXPECT_EQ(count("Time:     00:00:09\r\n"), 1);
}

// Folder, file, disk, memory: whatever refuses, the error itself is shown, once, and says that it could not be logged.
IN_MEMORY_TEST_F(Errors, ALogThatCannotBeWrittenDoesNotHideTheError) {
    const auto noMemory = [](const std::string& function) {
        if (function == "append") throw std::bad_alloc();
    };
    const std::pair<std::function<void()>, const char*> cases[] = {
        {[&] { system.writeFile("Logs", "a file"); },
         ". Cannot make the folder \"C:\\Tavimor\\Logs\": System error 183."},
        {[&] { system.files.watch.failOn("append", 1, platform::DiskFull); },
         ". Cannot write the file \"C:\\Tavimor\\Logs\\ErrorLog-3-9-2000.log\": There is not enough space on the "
         "disk."},
        {[&] { system.files.watch.onCall = noMemory; }, ": there is not enough memory."},
    };
    for (const auto& [arrange, says] : cases) {
        arrange();
        system.desktop.expectForm<frmError>([says = says](frmError& dialog) {
            EXPECT_EQ(dialog.lblErrDescription.caption(), "It does not work.");
            EXPECT_EQ(dialog.lblInfo(6).caption(), std::string("This could not be logged to file") + says);
            dialog.cmdContinue.click();
        });
        failUnseen("a.P");
        system.desktop.settle();
        EXPECT_EQ(Err.description, "It does not work.");
        system.platform().files.remove(system.path("Logs"));
    }
    system.files.watch.onCall = nullptr;
}

TEST_F(Errors, AnErrorWhileTheDialogIsOpenGoesToTheLogAloneAndOneBeforeItIsDropped) {
    reporting.exclamation = [&] {
        failUnseen("basMain.DrawExclamation");
        return ui::Picture();
    };
    system.desktop.expectForm<frmError>([&](frmError& dialog) {
        EXPECT_TRUE(errorPending());
        failUnseen("frmMain.tmrWatch_Timer");
        dialog.cmdContinue.click();
    });
    failUnseen("a.P");
    EXPECT_EQ(count("Start Error Information"), 2);
    EXPECT_EQ(count("Procedure:     tmrWatch_Timer"), 1);
}

}  // namespace
