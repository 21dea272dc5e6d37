#include "backup/frmRestore.h"

#include "backup/BackupFile.h"
#include "support/User.h"

namespace {

const char* const GoodFile =
    "Desc=Good\r\n"
    "inetcpl.cpl#1313;Internet;All other sites;69632;65536;73728;1\r\n"
    "inetcpl.cpl#4480;Trusted;Sites you trust;0;0;;71\r\n";

}  // namespace

struct RestoreDialog : User {
    backup::Restoration restoration{program};

    static std::string levels(const frmRestore& form) {
        return form.lblCurrent.caption() + "|" + form.lblMin.caption() + "|" + form.lblRec.caption() + "|" +
               form.lblFlags.caption();
    }
    // "names of the zones: the selected one's name|description|levels", and whether there is an icon.
    static std::string shown(const frmRestore& form) {
        std::string all;
        for (const std::string& zone : texts(form.lvwZones)) all += zone + " ";
        return all + ": " + form.lblZoneName.caption() + "|" + form.lblZoneCaption.caption() + "|" + levels(form) +
               (form.picZoneIcon.picture().empty() ? "" : " icon");
    }
    // Opens the dialog on one backup.
    void preview(const std::string& bytes, const Script<frmRestore>& script) {
        addFile("x.tvf", bytes);
        use<frmRestore>(script, restoration);
    }
};

TEST_F(RestoreDialog, ListsBackupsByTheirDescription) {
    const std::string one = "One; with # marks" + std::string(2000, 's');
    addFile("b.tvf", "Desc=" + one + "\r\nx");
    addFile("a.TVF", "Desc=Two");
    for (const char* other : {"lonely.reg", "c.tvf~", "d.tvfold"}) addFile(other, "Desc=None");
    system.platform().files.createFolder(inBackups("folder.tvf"));
    preview("Desc=Three", [&](frmRestore& form) {
        Texts listed = texts(form.ListView1);  // in the system's order
        std::sort(listed.begin(), listed.end());
        EXPECT_EQ(listed, (Texts{one, "Three", "Two"}));
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
        EXPECT_EQ(shown(form), "Internet Trusted : Internet|All other sites|Medium|Low|High|1 icon");
        const ui::Picture first = form.picZoneIcon.picture();
        form.lvwZones.click(2);
        EXPECT_EQ(shown(form), "Internet Trusted : Trusted|Sites you trust|Custom|Custom|**Missing**|71 icon");
        EXPECT_EQ(form.picZoneIcon.picture(), form.lvwZones.largeImages()->picture(form.lvwZones.item(2).image));
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
            if (size <= firstZone) expectError("frmRestore.ParseInfo", "no zones.");
            form.ListView1.click(1);
            EXPECT_EQ(form.lvwZones.count(), size <= firstZone ? 0 : size <= secondZone ? 1 : 2) << size;
            desktop.settle();
        });
}

TEST_F(RestoreDialog, KeepsTheLevelsShownWhenATagHasNotSevenFields) {
    preview("Desc=x\r\ni#1;n;d;69632;65536;73728;1\r\nI#1;N;\"D\r\n" + std::string(1000000, 'x'), [](frmRestore& form) {
        form.ListView1.click(1);
        form.lvwZones.choose(2);
        EXPECT_EQ(form.lblZoneName.caption() + "|" + levels(form), "N|Medium|Low|High|1");
    });
}

TEST_F(RestoreDialog, DeletesBothFilesOfABackupAndDisablesItsButtonsAfterTheLast) {
    system.seedModules();
    addFile("x.reg", "REGEDIT4");
    preview(GoodFile, [&](frmRestore& form) {
        form.cmdDelete.click();  // nothing is selected yet
        EXPECT_EQ(system.filesIn(system.path("Backups")).size(), 2u);
        form.ListView1.click(1);
        form.cmdDelete.click();
        EXPECT_TRUE(system.filesIn(system.path("Backups")).empty());
        EXPECT_EQ(form.ListView1.count(), 0);
        EXPECT_EQ(shown(form), ": |||||");
        form.cmdDelete.click();  // nothing is selected any more
        form.tmrWatch.tick();
        EXPECT_FALSE(form.cmdRestore.enabled());
        EXPECT_FALSE(form.cmdDelete.enabled());
    });
}

IN_MEMORY_TEST_F(RestoreDialog, ShowsNothingMoreWhenABackupCannotBeReadOrDeletedAsAWhole) {
    system.seedModules();
    preview(GoodFile, [&](frmRestore& form) {
        const auto expectNothing = [&](const char* procedure, const char* file, ui::CommandButton* button) {
            expectError(procedure, file);
            button ? button->click() : form.ListView1.click(1);
            EXPECT_EQ(shown(form), ": |||||");
        };
        form.ListView1.click(1);
        system.files.watch.failOn("read", 1, platform::AccessDenied);
        expectNothing("frmRestore.FillList", "x.tvf", nullptr);
        form.ListView1.click(1);
        addFile("y.tvf", GoodFile);
        expectNothing("frmRestore.cmdDelete_Click", "x.reg", &form.cmdDelete);
        EXPECT_EQ(form.ListView1.count(), 2) << "listed again";
        removeFile("y.tvf");
        addFile("x.reg", "");
        form.ListView1.click(1);
        system.files.watch.failOn("remove", 2, platform::AccessDenied);
        expectNothing("frmRestore.cmdDelete_Click", "x.tvf", &form.cmdDelete);
        EXPECT_EQ(file("x.reg") + file("x.tvf"), std::string("(no file)") + GoodFile);
        EXPECT_EQ(form.ListView1.count(), 1);
        form.cmdRestore.click();
        EXPECT_TRUE(form.loaded()) << "nothing is selected";
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
        EXPECT_EQ(texts(form.lvwZones).back(), "Zone 1999");
        EXPECT_EQ(form.lblZoneName.caption(), "Zone 1") << "the user's choice";
        form.ListView1.click(ofMany);
        form.ListView1.click(3 - ofMany);
        EXPECT_FALSE(form.tmrFill.enabled());
        EXPECT_EQ(texts(form.lvwZones), (Texts{"Internet", "Trusted"}));
        form.ListView1.click(ofMany);
    });
}
