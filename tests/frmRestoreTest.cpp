#include "backup/frmRestore.h"

#include "backup/BackupFile.h"
#include "support/BackupFixture.h"
#include "ui/Picture.h"

namespace {

const char* const GoodFile =
    "Desc=Good\r\n"
    "inetcpl.cpl#1313;Internet;All other sites;69632;65536;73728;1\r\n"
    "inetcpl.cpl#4480;Trusted;Sites you trust;0;0;;71\r\n";

}  // namespace

struct RestoreDialog : BackupFixture {
    static std::string levels(const frmRestore& form) {
        return form.lblCurrent.caption() + "|" + form.lblMin.caption() + "|" + form.lblRec.caption() + "|" +
               form.lblFlags.caption();
    }
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
    addFile("c.tvf~", "Desc=None");
    addFile("d.tvfold", "Desc=None");
    system.platform().files.createFolder(inBackups("folder.tvf"));
    Texts expected;  // in the system's order
    for (const std::string& name : system.filesIn(system.path("Backups"), "*.tvf"))
        if (name == "b.tvf" || name == "a.TVF") expected.push_back(name == "b.tvf" ? one : "Two");
    use<frmRestore>([&](frmRestore& form) {
        EXPECT_EQ(texts(form.ListView1), expected);
        form.cmdRestore.click();  // nothing is selected yet
        EXPECT_TRUE(form.loaded());
        form.closeBox();
    });
    EXPECT_EQ(system.files.openSearches(), 0);
}

IN_MEMORY_TEST_F(RestoreDialog, SaysWhenABackupWasMadeOrThatThereAreNone) {
    preview(GoodFile, [&](frmRestore& form) {
        EXPECT_EQ(form.lblWritten.caption(), "");
        form.ListView1.choose(1);
        EXPECT_EQ(form.lblWritten.caption(), "Backup of 6-4-2001 14:05:07");
    });
    EXPECT_EQ(backup::timeText({2026, 11, 2, 3, 4, 5}), "11-2-2026 03:04:05");
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
        EXPECT_EQ(levels(form), "Custom|Custom|**Missing**|71");
        EXPECT_EQ(form.picZoneIcon.picture(), form.ilsZoneIcons.picture(form.lvwZones.item(2).image));
        EXPECT_NE(form.picZoneIcon.picture(), first);
        form.ListView1.click(1);  // again: nothing piles up
        EXPECT_EQ(form.lvwZones.count(), 2);
        EXPECT_EQ(form.ilsZoneIcons.count(), 3);
    });
}

TEST_F(RestoreDialog, ReadsEveryTruncatedFileAndTellsWhenThereAreNoZonesInIt) {
    const std::string good = GoodFile;
    const std::size_t firstZone = good.find('\n') + 1, secondZone = good.find('\n', firstZone) + 1;
    for (std::size_t size = 0; size <= good.size(); ++size)
        preview(good.substr(0, size), [&](frmRestore& form) {
            if (size <= firstZone) expectError("frmRestore.ParseInfo", "no zones");
            form.ListView1.click(1);
            EXPECT_EQ(form.lvwZones.count(), size <= firstZone ? 0 : size <= secondZone ? 1 : 2) << size;
            desktop.settle();
        });
    preview("Desc=x\r\ni;one;d\r\ni;two;say \"n\"m", [&](frmRestore& form) {
        form.ListView1.click(1);
        EXPECT_EQ(texts(form.lvwZones), (Texts{"one", "one"})) << "a line with such quotes counts as malformed";
    });
}

TEST_F(RestoreDialog, KeepsTheLevelsShownWhenATagHasNotSevenFields) {
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
        EXPECT_EQ(form.ListView1.count(), 0);
        EXPECT_EQ(form.lvwZones.count(), 0);
        EXPECT_EQ(form.lblZoneName.caption() + form.lblZoneCaption.caption(), "");
        EXPECT_TRUE(form.picZoneIcon.picture().empty());
        form.cmdDelete.click();  // nothing is selected any more
        form.tmrWatch.tick();
        EXPECT_FALSE(form.cmdRestore.enabled());
        EXPECT_FALSE(form.cmdDelete.enabled());
        form.closeBox();
    });
}

IN_MEMORY_TEST_F(RestoreDialog, ListsAgainAndSelectsNothingWhenABackupCannotBeDeletedAsAWhole) {
    preview(GoodFile, [&](frmRestore& form) {
        form.ListView1.click(1);
        addFile("y.tvf", GoodFile);
        expectError("frmRestore.cmdDelete_Click", "x.reg");
        form.cmdDelete.click();
        EXPECT_EQ(file("x.tvf"), GoodFile);
        EXPECT_EQ(form.ListView1.count(), 2) << "listed again";
        EXPECT_EQ(form.lvwZones.count(), 0);
        system.platform().files.remove(inBackups("y.tvf"));
        addFile("x.reg", "");
        form.ListView1.click(1);
        system.files.watch.failOn("remove", 2, platform::AccessDenied);
        expectError("frmRestore.cmdDelete_Click", "x.tvf");
        form.cmdDelete.click();
        EXPECT_EQ(file("x.reg") + file("x.tvf"), std::string("(no file)") + GoodFile);
        EXPECT_EQ(form.ListView1.count(), 1);
        form.cmdRestore.click();
        EXPECT_TRUE(form.loaded()) << "nothing is selected";
    });
}

IN_MEMORY_TEST_F(RestoreDialog, ShowsNothingOfTheBackupBeforeWhenOneCannotBeRead) {
    preview(GoodFile, [&](frmRestore& form) {
        const auto shown = [&] {
            return form.lblZoneName.caption() + form.lblZoneCaption.caption() + levels(form) +
                   std::to_string(form.lvwZones.count()) + (form.picZoneIcon.picture().empty() ? "" : "icon");
        };
        form.ListView1.click(1);
        EXPECT_NE(shown(), "|||0");
        system.files.watch.failOn("read", 1, platform::AccessDenied);
        expectError("frmRestore.FillList", "x.tvf");
        form.ListView1.click(1);
        EXPECT_EQ(shown(), "|||0");
        form.ListView1.click(1);
        addFile("x.reg", "");
        form.cmdDelete.click();
        EXPECT_EQ(shown(), "|||0");
    });
}

// A long list is filled bit by bit, so that the user can turn away from it.
TEST_F(RestoreDialog, ShowsThousandsOfZonesInStepsThatEndWhenAnotherBackupIsChosen) {
    std::string many = "Desc=Many\r\n";
    for (int zone = 0; zone < 2000; ++zone) many += "i#1;Zone " + std::to_string(zone) + ";d;0;0;0;3\r\n";
    addFile("many.tvf", many);
    preview(GoodFile, [](frmRestore& form) {
        const int ofMany = form.ListView1.item(1).text == "Many" ? 1 : 2;
        form.ListView1.click(ofMany);
        EXPECT_LT(form.lvwZones.count(), 500);
        EXPECT_EQ(form.lblZoneName.caption(), "Zone 0");
        form.lvwZones.click(2);
        for (int ticks = 0; form.tmrFill.enabled() && ticks < 100; ++ticks) form.tmrFill.tick();
        EXPECT_EQ(form.lvwZones.count(), 2000);
        EXPECT_EQ(form.lvwZones.item(2000).text, "Zone 1999");
        EXPECT_EQ(form.lblZoneName.caption(), "Zone 1") << "the user's choice";
        form.ListView1.click(ofMany);
        form.ListView1.click(3 - ofMany);
        EXPECT_FALSE(form.tmrFill.enabled());
        EXPECT_EQ(texts(form.lvwZones), (Texts{"Internet", "Trusted"}));
        form.ListView1.click(ofMany);
    });
}
