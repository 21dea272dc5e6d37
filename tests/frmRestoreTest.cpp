#include "backup/frmRestore.h"

#include "app/frmMain.h"
#include "backup/frmBackup.h"
#include "support/BackupFixture.h"
#include "ui/Picture.h"

namespace {

const char* const GoodFile =
    "Desc=Good\r\n"
    "inetcpl.cpl#1313;Internet;All other sites;69632;65536;73728;1\r\n"
    "inetcpl.cpl#4480;Trusted;Sites you trust;0;66816;70000;71\r\n";

}  // namespace

struct RestoreDialog : BackupFixture {
    static std::string levels(const frmRestore& form) {
        return form.lblCurrent.caption() + "|" + form.lblMin.caption() + "|" + form.lblRec.caption() + "|" +
               form.lblFlags.caption();
    }
    std::string inBackups(const std::string& name) { return system.path("Backups\\" + name); }
    // Opens the dialog on one backup and selects that.
    void preview(const std::string& bytes, const std::function<void(frmRestore&)>& script) {
        addFile("x.tvf", bytes);
        use<frmRestore>([&](frmRestore& form) {
            script(form);
            form.pressEscape();
        });
    }
};

TEST_F(RestoreDialog, ListsBackupsByTheirDescription) {
    const std::string one = "One; with # marks" + std::string(2000, 's');
    addFile("b.tvf", "Desc=" + one + "\r\nx");
    addFile("a.TVF", "Desc=Two");
    addFile("lonely.reg", "REGEDIT4");
    system.platform().files.createFolder(inBackups("folder.tvf"));
    Texts expected;  // in the system's order
    for (const std::string& name : system.filesIn(system.path("Backups"), "*.tvf"))
        if (name != "folder.tvf") expected.push_back(name == "b.tvf" ? one : "Two");
    use<frmRestore>([&](frmRestore& form) {
        EXPECT_EQ(texts(form.ListView1), expected);
        form.cmdRestore.click();  // nothing is selected yet
        EXPECT_TRUE(form.loaded());
        form.closeBox();
    });
    EXPECT_EQ(system.files.openSearches(), 0);
}

TEST_F(RestoreDialog, PreviewsTheFirstZoneAndThenTheOneClicked) {
    system.seedModules();
    preview(GoodFile, [](frmRestore& form) {
        form.ListView1.choose(1);
        EXPECT_EQ(texts(form.lvwZones), (Texts{"Internet", "Trusted"}));
        EXPECT_EQ(form.lblZoneName.caption() + "|" + form.lblZoneCaption.caption(), "Internet|All other sites");
        EXPECT_EQ(levels(form), "Medium|Low|High|1");
        const ui::Picture first = form.picZoneIcon.picture();
        form.lvwZones.click(2);
        EXPECT_EQ(form.lblZoneName.caption(), "Trusted");
        EXPECT_EQ(levels(form), "Custom|Medium-Low||71");
        EXPECT_EQ(form.picZoneIcon.picture(), form.ilsZoneIcons.picture(form.lvwZones.item(2).image));
        EXPECT_NE(form.picZoneIcon.picture(), first);
        form.ListView1.click(1);  // again: nothing piles up
        EXPECT_EQ(form.lvwZones.count(), 2);
        EXPECT_EQ(form.ilsZoneIcons.count(), 3);
    });
}

TEST_F(RestoreDialog, ReadsEveryTruncatedFileAndTellsWhenThereAreNoZonesInIt) {
    const std::string good = GoodFile;
    const std::size_t firstZone = good.find('\n') + 1;
    for (std::size_t size = 0; size <= good.size(); ++size)
        preview(good.substr(0, size), [&](frmRestore& form) {
            if (size <= firstZone) expectError("frmRestore.ParseInfo", "no zones");
            form.ListView1.click(1);
            EXPECT_LE(form.lvwZones.count(), 2);
            desktop.settle();
        });
    preview("Desc=x\r\ni;\"n\"m;d", [&](frmRestore& form) {
        expectError("frmRestore.ParseInfo", "quoted string");
        form.ListView1.click(1);
        EXPECT_EQ(form.lvwZones.count(), 0);
    });
}

TEST_F(RestoreDialog, KeepsTheLevelsShownWhenATagHasMoreThanSevenFields) {
    const std::string mega(1000000, 'x');
    preview("Desc=x\r\ni#1;n;d;69632;65536;73728;1\r\nI#1;N;\"D\r\n" + mega, [](frmRestore& form) {
        form.ListView1.click(1);
        form.lvwZones.choose(2);
        EXPECT_EQ(form.lblZoneName.caption(), "N");
        EXPECT_EQ(levels(form), "Medium|Low|High|1");
    });
}

TEST_F(RestoreDialog, DeletesBothFilesOfABackupAndDisablesItsButtonsAfterTheLast) {
    system.seedModules();
    addFile("A.TVF", GoodFile);
    addFile("A.reg", "REGEDIT4");
    use<frmRestore>([&](frmRestore& form) {
        form.cmdDelete.click();  // nothing is selected yet
        EXPECT_EQ(system.filesIn(system.path("Backups")).size(), 2u);
        form.ListView1.click(1);
        form.cmdDelete.click();
        EXPECT_TRUE(system.filesIn(system.path("Backups")).empty());
        EXPECT_EQ(form.ListView1.count() + form.lvwZones.count(), 0);
        EXPECT_EQ(form.lblZoneName.caption() + form.lblZoneCaption.caption(), "");
        EXPECT_TRUE(form.picZoneIcon.picture().empty());
        form.cmdDelete.click();  // nothing is selected any more
        form.tmrWatch.tick();
        EXPECT_FALSE(form.cmdRestore.enabled() || form.cmdDelete.enabled());
        form.closeBox();
    });
}

TEST_F(RestoreDialog, KeepsABackupWhoseExportIsMissingWhenItIsDeleted) {
    preview(GoodFile, [&](frmRestore& form) {
        form.ListView1.click(1);
        expectError("frmRestore.cmdDelete_Click", "x.reg");
        form.cmdDelete.click();
        EXPECT_EQ(file("x.tvf"), GoodFile);
    });
}

// With the main window, whose list shows what is restored.
struct Restoring : RestoreDialog {
    frmMain window{program};

    void SetUp() override {
        system.seedBrowser();
        system.seedZones();
        window.load();
        addFile("x.tvf", GoodFile);
        addFile("x.reg", "REGEDIT4\r\n\r\n[" + zoneKey("0") + "]\r\n\"DisplayName\"=\"Zero\"\r\n\r\n[" + zoneKey("1") +
                             "]\r\n\"DisplayName\"=\"One\"\r\n");
    }
    void TearDown() override { window.unload(); }
    void restore(const std::function<void(frmRestore&)>& select = [](frmRestore& form) { form.ListView1.click(1); }) {
        desktop.use<frmRestore>(
            [&](frmRestore& form) {
                select(form);
                form.cmdRestore.click();
            },
            [&] { window.mnuFileRestore.click(); });
    }
};

TEST_F(Restoring, HandsTheExportToTheRegistryEditorAndDoesNotWait) {
    restore();
    ASSERT_EQ(system.launcher.started.size(), 1u);
    EXPECT_EQ(system.launcher.started[0].program, system.system.GetWindowsDirectoryA() + "\\regedit.exe");
    EXPECT_EQ(system.launcher.started[0].arguments, "/s \"" + inBackups("x.reg") + "\"");

    system.endPrograms();
    window.tmrImport.tick();
    EXPECT_EQ(texts(window.lvwZones), (Texts{"Zero", "One"}));
    EXPECT_EQ(window.selection().zone, "1");
    EXPECT_FALSE(window.tmrImport.enabled());
    EXPECT_TRUE(system.launcher.open.empty());
}

TEST_F(Restoring, ShowsWhatThereIsWhileTheImportRunsAndTheRestWhenItHasEnded) {
    if (!system.simulation()) GTEST_SKIP() << "the real registry editor cannot be stopped half-way";
    system.simulation()->launcher.onStart = {};
    restore();
    system.setText(zoneKey("0"), "DisplayName", "Zero");
    window.tmrImport.tick();
    EXPECT_TRUE(window.tmrImport.enabled());
    EXPECT_EQ(window.lvwZones.count(), 0);
    system.endPrograms();
    // Not below an open dialog, which works on the selected zone.
    desktop.use<frmBackup>(
        [&](frmBackup&) {
            window.tmrImport.tick();
            EXPECT_EQ(window.lvwZones.count(), 0);
        },
        [&] { window.mnuFileBackup.click(); });
    window.tmrImport.tick();
    EXPECT_EQ(texts(window.lvwZones), Texts{"Zero"});
}

TEST_F(Restoring, BacksTheZonesUpFirstWhenTheExportIsMissing) {
    system.files.remove(inBackups("x.reg"));
    restore();
    EXPECT_FALSE(system.exists(zoneKey("0")));
    system.endPrograms();

    EXPECT_TRUE(file("3-9-2000 1457.tvf").starts_with("Desc=Zones before restoring \"Good\""));
    restore([&](frmRestore& form) {
        for (int item = 1; item <= form.ListView1.count(); ++item)
            if (form.ListView1.item(item).tag == inBackups("3-9-2000 1457.tvf")) form.ListView1.click(item);
        expectError("clsRegistry.DeleteZone", "no zones");  // and the import goes on
    });
    system.endPrograms();
    for (int zone = 0; zone < 5; ++zone) EXPECT_EQ(system.values(zoneKey(std::to_string(zone))).empty(), false) << zone;
}

TEST_F(Restoring, DeletesNothingWhenTheExportIsMissingAndTheZonesCannotBeBackedUp) {
    system.files.remove(inBackups("x.reg"));
    system.files.watch.failOn("append", 1, platform::DiskFull);
    restore([&](frmRestore& form) {
        form.ListView1.click(1);
        expectError("frmRestore.cmdRestore_Click", "3-9-2000 1457.reg");
    });
    EXPECT_TRUE(system.exists(zoneKey("0")));
    EXPECT_TRUE(system.launcher.started.empty());
}
