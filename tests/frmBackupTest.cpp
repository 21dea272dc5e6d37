#include "backup/frmBackup.h"

#include "backup/BackupFile.h"
#include "support/BackupFixture.h"

namespace {

const std::string Zones = zones::ZonesKey;
const std::string Head =
    "REGEDIT4\r\n\r\n;This file created by Tavimor.\r\n;Please do not modify this file.\r\n\r\n[" + Zones + "]\r\n";

}  // namespace

struct BackupDialog : BackupFixture {
    // The test system's clock: 9 March 2000, 14:05:07.
    const std::string name = "3-9-2000 1457";

    // `failing`: a procedure whose failure the user is told of.
    void backUp(const std::string& description, const std::string& failing = {}) {
        use<frmBackup>([&](frmBackup& form) {
            if (!failing.empty()) expectError(failing, "is not complete");
            form.txtDescription.type(description);
            form.pressEnter();
        });
    }
    std::string exported() { return file(name + ".reg"); }
    std::string zoneFile() { return file(name + ".tvf"); }
};

TEST_F(BackupDialog, WritesBothFilesWhenEnterIsPressed) {
    system.setText(zoneKey("0"), "DisplayName", "My Computer");
    system.setText(zoneKey("0"), "Description", "Your \\ computer");
    system.setText(zoneKey("0"), "Icon", "C:\\a.dll#0100");
    system.setDword(zoneKey("0"), "CurrentLevel", 0);
    system.setDword(zoneKey("0"), "Flags", 0xDB);
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

TEST_F(BackupDialog, KeepsOfTheZonesKeyItselfOnlyAnEmptyDefaultValue) {
    for (const std::string text : {"", "text"}) {
        system.setText(Zones, "", text);
        system.setDword(Zones, "SelfHealCount", 1);
        backUp(text.empty() ? "" : "   ");
        EXPECT_TRUE(exported().ends_with(Head + (text.empty() ? "@=\"\"\r\n\r\n" : "\r\n"))) << exported();
        EXPECT_TRUE(zoneFile().ends_with("Desc=" + name + "\r\n")) << "named by its time";
    }
    // Two backups within one second share their files.
    EXPECT_EQ(exported(), Head + "@=\"\"\r\n\r\n" + Head + "\r\n");
}

TEST_F(BackupDialog, ListsZonesInTheRegistrysOrderWithIconsAndNumbersThatCanBeUsed) {
    for (const char* zone : {"0", "1", "2", "10"}) system.setText(zoneKey(zone), "DisplayName", zone);
    system.setText(zoneKey("0"), "Icon", "shdocvw.dll");
    system.setText(zoneKey("1"), "Icon", "\"a\"b#1");
    system.setText(zoneKey("2"), "MinLevel", "no number");
    system.setDword(zoneKey("10"), "MinLevel", 65536);
    system.setDword(zoneKey("10"), "RecommendedLevel", 69632);
    system.setDword(zoneKey("10"), "Flags", 0xFFFFFFFF);
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

TEST_F(BackupDialog, TakesNoSecondPressAndIsFinishedWhenItIsClosedMeanwhile) {
    system.seedZones();
    backUp("whole");
    const std::string whole[] = {exported(), zoneFile()};
    system.system.now = {2000, 3, 9, 15, 5, 7};
    frmBackup form(program);
    desktop.onDoEvents = [&] {
        EXPECT_EQ(form.pointer(), ui::Pointer::Hourglass);
        form.cmdBackup.click();
        form.pressEnter();
        form.closeBox();
        program.registry.cD("\\HKEY_LOCAL_MACHINE");  // and something else uses the session
    };
    desktop.expectForm<frmBackup>([](frmBackup& shown) {
        shown.txtDescription.type("whole");
        shown.cmdBackup.click();
    });
    form.showModal();
    EXPECT_EQ(file("3-9-2000 1557.reg"), whole[0]);
    EXPECT_EQ(file("3-9-2000 1557.tvf"), whole[1]);
    EXPECT_EQ(form.pointer(), ui::Pointer::Default);
}

TEST_F(BackupDialog, TellsOfEachFileThatCannotBeWrittenAndKeepsWhatWas) {
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
        // The dialog is closed all the same, after the other file has been tried.
        backUp("whole", inZones ? "frmBackup.SaveZoneFile" : "frmBackup.SaveRegFile");
        const std::string files[] = {file(stamp + ".reg"), file(stamp + ".tvf")};
        EXPECT_TRUE(files[!inZones] == whole[!inZones]);
        EXPECT_TRUE(files[inZones] == "(no file)" || whole[inZones].starts_with(files[inZones]));
    }
}

TEST_F(BackupDialog, CostsOneRegistryCallAValueAndFewWrites) {
    constexpr int ZoneCount = 30, ValueCount = 50;
    for (int zone = 0; zone < ZoneCount; ++zone)
        for (int value = 0; value < ValueCount; ++value)
            system.setDword(zoneKey(std::to_string(zone)), std::to_string(1000 + value), 3);
    system.registry.watch.reset();
    backUp("both files");
    EXPECT_LE(system.registry.watch.calls(), ZoneCount * (ValueCount + 16));
    EXPECT_LE(system.files.watch.calls("append"), ZoneCount);
}
