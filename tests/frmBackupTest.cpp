#include "backup/frmBackup.h"

#include "backup/BackupFile.h"
#include "support/User.h"

namespace {

const std::string Zones = zones::ZonesKey;
const std::string Head =
    "REGEDIT4\r\n\r\n;This file created by Tavimor.\r\n;Please do not modify this file.\r\n\r\n[" + Zones + "]\r\n";

}  // namespace

struct BackupDialog : User {
    // The test system's clock: 9 March 2000, 14:05:07.
    const std::string name = "3-9-2000 1457";

    // `failing`: a procedure whose failure the user is told of, and how.
    void backUp(const std::string& description, const std::string& failing = {}, const std::string& message = {}) {
        use<frmBackup>([&](frmBackup& form) {
            if (!failing.empty()) expectError(failing, message);
            form.txtDescription.type(description);
            form.pressEnter();
            EXPECT_EQ(form.loaded(), !failing.empty());
            EXPECT_TRUE(form.cmdBackup.enabled());
            EXPECT_EQ(form.txtDescription.text(), description);
        });
    }
    std::string exported() { return file(name + ".reg"); }
    std::string zoneFile() { return file(name + ".tvf"); }
};

TEST_F(BackupDialog, WritesBothFilesWhenEnterIsPressed) {
    set("0", {{"DisplayName", "My Computer"}, {"Description", "Your \\ computer"}, {"Icon", "C:\\a.dll#0100"}});
    set("0", {{"CurrentLevel", "#0"}, {"Flags", "#219"}});
    system.setBinary(zoneKey("0"), "{Java}", platform::Bytes{1, 2});
    system.makeKey(zoneKey("1"));
    backUp("  Before; the toolbar ");
    EXPECT_EQ(exported(), Head + "\r\n[" + Zones +
                              "\\0]\r\n\"CurrentLevel\"=dword:00000000\r\n\"Description\"=\"Your \\ computer\"\r\n"
                              "\"DisplayName\"=\"My Computer\"\r\n\"Flags\"=dword:000000db\r\n"
                              "\"Icon\"=\"C:\\\\a.dll#0100\"\r\n\r\n[" +
                              Zones + "\\1]\r\n\r\n");
    EXPECT_EQ(zoneFile(), "Desc=Before; the toolbar\r\nC:\\a.dll#0100;My Computer;Your \\ computer;0;;;219\r\n" +
                              system.programFolder() + "\\Tavimor.exe#1;;;;;;\r\n");
}

TEST_F(BackupDialog, WritesNothingWhenItIsCancelled) {
    system.seedZones();
    for (const std::string how : {"button", "Escape", "box"})
        use<frmBackup>([&](frmBackup& form) {
            const int line = form.cmdBackup.top() - form.cmdBackup.height() / 2;
            EXPECT_EQ(form.lines()[0], (ui::Line{0, line, form.client().width, line, ui::SystemColour::Shadow3D}));
            form.txtDescription.type("x");
            if (how == "button") form.cmdCancel.click();
            if (how == "box") form.closeBox();
            EXPECT_EQ(form.loaded(), how == "Escape");  // which closes it now
        });
    EXPECT_TRUE(system.filesIn(system.path("Backups")).empty());
}

TEST_F(BackupDialog, KeepsOfTheZonesKeyItselfOnlyAnEmptyDefaultValue) {
    for (const std::string text : {"", "text"}) {
        system.setText(Zones, "", text);
        system.setDword(Zones, "SelfHealCount", 1);
        backUp(text.empty() ? "" : "   ");
        EXPECT_EQ(exported(), Head + (text.empty() ? "@=\"\"\r\n\r\n" : "\r\n"));
        EXPECT_EQ(zoneFile(), "Desc=" + name + "\r\n") << "named by its time";
        for (const char* end : {".reg", ".tvf"}) removeFile(name + end);
    }
}

TEST_F(BackupDialog, TakesTheNameOfTheFirstSecondFromNowOnThatIsFree) {
    addFile("12-31-1999 235959.reg", "");
    addFile("12-31-1999 235958.TVF", "");
    system.system.now = {1999, 12, 31, 23, 59, 58};
    for (const char* expected : {"1-1-2000 0000", "1-1-2000 0001"}) {
        backUp("x");
        EXPECT_EQ(file(std::string(expected) + ".tvf"), "Desc=x\r\n") << expected;
        EXPECT_EQ(file(std::string(expected) + ".reg"), Head + "\r\n") << expected;
    }
    system.system.now = {2000, 2, 28, 23, 59, 59};
    backUp("x");
    backUp("y");
    EXPECT_EQ(file("2-29-2000 0000.tvf"), "Desc=y\r\n");
    EXPECT_EQ(file("12-31-1999 235958.TVF") + file("12-31-1999 235959.reg"), "");
}

TEST_F(BackupDialog, TellsOnceWhatIsInTheWay) {
    system.writeFile("Backups", "");
    backUp("kept", "frmBackup.SaveRegFile", "cannot be made: a file of that name is in the way.");
    system.platform().files.remove(system.path("Backups"));
    for (const char* zone : {"0", "1"}) addZone(zone);
    desktop.onDoEvents = [&] { system.deleteTree(zoneKey("1")); };
    backUp("kept", "frmBackup.SaveRegFile", "The zone \"1\" is gone. The backup is incomplete.");
    EXPECT_EQ(zoneFile(), "(no file)");
}

TEST_F(BackupDialog, ListsZonesInTheRegistrysOrderWithIconsAndNumbersThatCanBeUsed) {
    set("0", {{"DisplayName", "0"}, {"Icon", "shdocvw.dll"}});
    set("1", {{"DisplayName", "1"}, {"Icon", "\"a\"b#1"}});
    set("2", {{"DisplayName", "2"}, {"MinLevel", "no number"}});
    set("10",
        {{"DisplayName", "10"}, {"MinLevel", "#65536"}, {"RecommendedLevel", "#69632"}, {"Flags", "#4294967295"}});
    backUp("x");
    std::string expected = "Desc=x\r\n";
    for (const std::string& zone : system.keys(Zones))
        expected += system.programFolder() + "\\Tavimor.exe#1;" + zone +
                    (zone == "10" ? ";;;65536;69632;4294967295\r\n" : ";;;;;\r\n");
    EXPECT_EQ(zoneFile(), expected);
}

TEST_F(BackupDialog, LetsTheWindowsLiveWhileItWritesButLooksForEventsNoMoreOftenThanTheyCanCome) {
    for (int value = 0; value < 1000; ++value) system.setDword(zoneKey("0"), std::to_string(value), 3);
    int looks = 0;
    desktop.onDoEvents = [&] { ++looks; };
    for (const auto& [milliseconds, least, most] :
         {std::tuple{0u, 1, 1}, {1u, 90, 110}, {4u, 300, 400}, {1000u, 1000, 1002}}) {
        looks = 0;
        system.system.ticksALook = milliseconds;  // that a value takes
        system.system.ticks = 0xFFFFFF00;         // soon after, the clock starts again at 0
        backUp("x");
        EXPECT_GE(looks, least) << milliseconds;
        EXPECT_LE(looks, most) << milliseconds;
    }
}

TEST_F(BackupDialog, TakesNoInputWhileItWritesAndKeepsEveryWindowOpen) {
    system.seedZones();
    int looks = 0;
    use<frmBackup>([&](frmBackup& form) {
        desktop.onDoEvents = [&] {
            ++looks;
            EXPECT_EQ(form.pointer(), ui::Pointer::Hourglass);
            EXPECT_TRUE(desktop.busy());
            form.cmdBackup.click();
            form.cmdCancel.click();
            form.pressEnter();
            form.pressEscape();
            form.closeBox();
            EXPECT_TRUE(form.loaded());
            program.registry.cD("\\HKEY_LOCAL_MACHINE");  // and something else uses the session
        };
        form.txtDescription.type("whole");
        form.cmdBackup.click();
        EXPECT_FALSE(form.loaded());
        EXPECT_EQ(form.pointer(), ui::Pointer::Default);
    });
    EXPECT_GT(looks, 0);
    EXPECT_TRUE(exported().ends_with("\r\n\r\n"));
    EXPECT_TRUE(zoneFile().ends_with(";3\r\n")) << exported() << zoneFile();
    EXPECT_FALSE(desktop.busy());
}

IN_MEMORY_TEST_F(BackupDialog, StopsAtTheFirstFileThatCannotBeWrittenAndKeepsWhatWas) {
    // Zones that take several writes.
    for (const char* zone : {"0", "1", "2", "3"}) system.setText(zoneKey(zone), "Description", std::string(40000, 'x'));
    backUp("whole");
    const std::string whole[] = {exported(), zoneFile()};
    const int writes = system.files.watch.calls("append");
    ASSERT_GE(writes, 8);
    for (int failing = 1; failing <= writes; ++failing) {
        SCOPED_TRACE(failing);
        system.system.now.hour = failing;
        const std::string stamp = backup::baseName(system.system.now);
        // With the code of a success it is a write that came to nothing all the same.
        system.files.watch.failOn("append", failing, failing % 2 ? platform::DiskFull : platform::Success);
        const bool inZones = failing > writes / 2;
        backUp("whole", inZones ? "frmBackup.SaveZoneFile" : "frmBackup.SaveRegFile", " not enough space on the disk.");
        const std::string files[] = {file(stamp + ".reg"), file(stamp + ".tvf")};
        EXPECT_EQ(files[!inZones], inZones ? whole[0] : "(no file)");
        if (files[inZones] == "(no file)") continue;
        EXPECT_TRUE(whole[inZones].starts_with(files[inZones])) << files[inZones];
    }
}
