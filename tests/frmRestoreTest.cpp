#include "backup/frmRestore.h"

#include <map>

#include "app/frmMain.h"
#include "backup/frmBackup.h"
#include "editing/frmAdd.h"
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
    preview("Desc=x\r\ni;one;d\r\ni;two;say \"n\"m", [&](frmRestore& form) {
        form.ListView1.click(1);
        EXPECT_EQ(texts(form.lvwZones), (Texts{"one", "one"})) << "a line with such quotes counts as malformed";
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

TEST_F(RestoreDialog, ListsAgainAndSelectsNothingWhenABackupCannotBeDeletedAsAWhole) {
    preview(GoodFile, [&](frmRestore& form) {
        form.ListView1.click(1);
        addFile("y.tvf", GoodFile);
        expectError("frmRestore.cmdDelete_Click", "x.reg");
        form.cmdDelete.click();
        EXPECT_EQ(file("x.tvf"), GoodFile);
        EXPECT_EQ(form.ListView1.count(), 2) << "listed again";
        EXPECT_EQ(form.lvwZones.count(), 0);
        system.files.remove(inBackups("y.tvf"));
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

TEST_F(RestoreDialog, ShowsNothingOfTheBackupBeforeWhenOneCannotBeRead) {
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

// With the main window, whose list shows what is restored.
struct Restoring : RestoreDialog {
    frmMain window{program};
    using Values = std::map<std::string, std::string>;  // "zone\name" and what it holds

    static constexpr const char* Name = "3-9-2000 1457";      // of the first backup by the test system's clock
    static constexpr const char* CopyName = "3-9-2000 1458";  // and of the next

    void SetUp() override {
        system.seedBrowser();
        setZones(2, "start");
        window.load();
    }
    void TearDown() override { window.unload(); }

    void restoreZones(const std::function<void(frmRestore&)>& before = [](frmRestore&) {}) {
        desktop.use<frmRestore>(
            [&](frmRestore& form) {
                for (int item = 1; item <= form.ListView1.count(); ++item)
                    if (form.ListView1.item(item).tag == inBackups(std::string(Name) + ".tvf"))
                        form.ListView1.click(item);
                before(form);
                form.cmdRestore.click();
            },
            [&] { window.mnuFileRestore.click(); });
    }
    void endImport() {
        system.endPrograms();
        window.tmrImport.tick();
    }
    void backUpZones() {
        desktop.expectForm<frmBackup>([](frmBackup& form) {
            form.txtDescription.type("Good");
            form.pressEnter();
        });
        window.mnuFileBackup.click();
    }
    Values values() {
        Values all;
        for (const std::string& zone : system.keys(zones::ZonesKey)) {
            all[zone];
            for (const std::string& name : system.values(zoneKey(zone))) {
                const auto number = system.dword(zoneKey(zone), name);
                all[zone + "\\" + name] =
                    number ? "#" + std::to_string(*number) : system.text(zoneKey(zone), name).value_or("?");
            }
        }
        return all;
    }
    // As many zones as the registry is to have, each with a text and a number that tell where they come from.
    void setZones(int count, const std::string& text) {
        system.deleteTree(zones::ZonesKey);
        for (int zone = 0; zone < count; ++zone) {
            system.setText(zoneKey(std::to_string(zone)), "DisplayName", text);
            system.setDword(zoneKey(std::to_string(zone)), "Flags", static_cast<std::uint32_t>(text.size()));
        }
    }
    void expectQuestion(int restored, int wanted, ui::Answer answer) {
        desktop.expectMessage("Only " + std::to_string(restored) + " of the " + std::to_string(wanted) +
                                  " zones of this backup could be restored. Put the zones back as they were before?",
                              answer, [&] { window.tmrImport.tick(); });  // which asks no second time
    }
    // A registry editor that is started and imports nothing.
    bool idleEditor() {
        if (!system.simulation()) return false;
        system.simulation()->launcher.onStart = {};
        return true;
    }
    // The exports of all backups that are listed but the one that is restored.
    std::string listedCopies() {
        std::string exports;
        for (std::string name : system.filesIn(system.path("Backups"), "*.tvf"))
            if (name != std::string(Name) + ".tvf") exports += file(name.replace(name.size() - 3, 3, "reg"));
        return exports;
    }
    static bool backedUp(const std::string& exports, const std::string& name, const std::string& held) {
        const std::size_t slash = name.find('\\');
        const std::size_t zone = exports.find("Zones\\" + name.substr(0, slash) + "]\r\n");
        if (zone == std::string::npos || slash == std::string::npos) return zone != std::string::npos;
        const std::string block = exports.substr(zone, exports.find("\r\n\r\n", zone) - zone) + "\r\n";
        const std::string data = held == "#5" ? "dword:00000005" : "\"" + held + "\"";
        return block.find("\r\n\"" + name.substr(slash + 1) + "\"=" + data + "\r\n") != std::string::npos;
    }
    bool copied() { return file(std::string(CopyName) + ".tvf") != "(no file)"; }
};

TEST_F(Restoring, StartsTheRegistryEditorOnTheExportAndDoesNotWait) {
    setZones(2, "old");
    backUpZones();
    const Values old = values();
    setZones(3, "other");
    window.RebuildList();
    restoreZones();
    ASSERT_EQ(system.launcher.started.size(), 1u);
    EXPECT_EQ(system.launcher.started[0].program, system.system.GetWindowsDirectoryA() + "\\regedit.exe");
    EXPECT_EQ(system.launcher.started[0].arguments, "/s \"" + inBackups(std::string(Name) + ".reg") + "\"");
    EXPECT_TRUE(file(std::string(CopyName) + ".tvf").starts_with("Desc=Zones before restoring \"Good\"\r\n"));

    endImport();
    EXPECT_EQ(values(), old);
    EXPECT_EQ(texts(window.lvwZones), (Texts{"old", "old"}));
    EXPECT_FALSE(window.tmrImport.enabled());
    EXPECT_TRUE(system.launcher.open.empty());
    EXPECT_EQ(system.filesIn(system.path("Backups")).size(), 2u) << "the copy is gone";
}

TEST_F(Restoring, LetsNothingElseBeginWhileTheEditorRuns) {
    if (!idleEditor()) GTEST_SKIP() << "the real registry editor cannot be stopped half-way";
    setZones(6, "old");
    backUpZones();
    restoreZones();
    setZones(6, "half");
    window.RebuildList();
    window.lvwZones.click(6);
    const std::function<void()> refused[] = {
        [&] { window.mnuFileBackup.click(); }, [&] { window.mnuFileRestore.click(); },
        [&] { window.cmdZoneOption(0).click(); }, [&] { window.mnuEditAdd.click(); },
        [&] { window.cmdZoneOption(2).click(); }};
    for (const auto& action : refused) {
        desktop.expectMessage("A backup is being restored. Please wait until that is done.", ui::Answer::Ok);
        action();
        desktop.settle();
    }
    window.tmrImport.tick();
    EXPECT_TRUE(window.tmrImport.enabled());
    EXPECT_EQ(texts(window.lvwZones)[0], "half") << "not below the editor";
    system.endPrograms();
    // Not below an open dialog, which works on the selected zone.
    use<frmBackup>([&](frmBackup& form) {
        window.tmrImport.tick();
        EXPECT_EQ(texts(window.lvwZones)[0], "half");
        form.pressEscape();
    });
    window.tmrImport.tick();
    EXPECT_EQ(texts(window.lvwZones)[0], "old");
    EXPECT_FALSE(copied());
    system.files.watch.reset();
    backUpZones();  // again
}

TEST_F(Restoring, KeepsTheCopyWhenTheProgramIsClosedMeanwhile) {
    setZones(2, "old");
    backUpZones();
    setZones(3, "other");
    restoreZones();
    window.unload();
    EXPECT_TRUE(system.launcher.open.empty());
    EXPECT_TRUE(copied());
    system.endPrograms();
}

// Texts that a registry editor misreads, or is stopped by.
TEST_F(Restoring, WritesWhatTheEditorDidNotBring) {
    const char* texts[] = {"C:\\0\\new",       "say \"hi\"", "end\\", "a=b [x] ;c", "one\r\ntwo",
                           "a\r\n\"New\"=\"b", "Caf\xE9",    "\"",    "100%",       "",
                           "one\n\n[sic]",     "\\\\srv\\a", "'",     "last"};
    int zone = 0;
    for (const char* text : texts) {
        const std::string key = zoneKey(std::to_string(zone++));
        system.setText(key, "Description", text);
        system.setText(key, "Icon", std::string(text) + "#1");
        system.setText(key, "Na\"me", "quoted");
        system.setText(key, "Na\\me", "with a backslash");
        system.setText(key, "", "");
        system.setDword(key, "1A\\00", 0xFFFFFFFF);
    }
    const Values old = values();
    backUpZones();
    for (const bool starts : {true, false}) {
        SCOPED_TRACE(starts);
        setZones(3, "other");
        if (Simulation* s = system.simulation())
            s->launcher.answer = starts ? platform::Success : platform::AccessDenied;
        if (!starts) system.launcher.watch.failOn("start", 1, platform::AccessDenied);
        restoreZones();
        endImport();
        EXPECT_EQ(values(), old);
        EXPECT_FALSE(copied());
    }
}

TEST_F(Restoring, DoesWithoutARegistryEditorWhenTheExportCanBeRead) {
    if (!system.simulation()) GTEST_SKIP() << "the real registry editor stays";
    setZones(2, "old");
    backUpZones();
    const Values old = values();
    setZones(3, "other");
    const Values other = values();
    system.simulation()->files.remove("C:\\WINDOWS\\regedit.exe");
    restoreZones();
    EXPECT_TRUE(system.launcher.started.empty());
    endImport();
    EXPECT_EQ(values(), old);

    setZones(3, "other");
    system.files.remove(inBackups(std::string(Name) + ".reg"));
    restoreZones([&](frmRestore&) {
        desktop.expectMessage("The registry editor is missing, and the registry export \"" +
                                  inBackups(std::string(Name) + ".reg") +
                                  "\" cannot be read. Nothing has been restored.",
                              ui::Answer::Ok);
    });
    EXPECT_EQ(values(), other);
    EXPECT_FALSE(copied());
}

// What an editor would import unseen may touch anything.
TEST_F(Restoring, LooksThroughAnExportOrDoesNotImportIt) {
    setZones(2, "old");
    backUpZones();
    const Values old = values();
    setZones(3, "other");
    restoreZones([&](frmRestore&) { system.files.watch.failOn("read", 1, platform::AccessDenied); });
    EXPECT_TRUE(system.launcher.started.empty());
    endImport();
    EXPECT_EQ(values(), old) << "it could be read by then";
    EXPECT_FALSE(copied());

    if (!idleEditor()) return;
    setZones(3, "other");
    restoreZones();
    system.files.remove(inBackups(std::string(Name) + ".reg"));
    endImport();
    EXPECT_EQ(values(), old) << "as it was read before";
}

TEST_F(Restoring, AsksWhenAnExportBringsFewerZonesAndPutsThemBackAsTheyWere) {
    setZones(3, "say \"old\"");
    backUpZones();
    const std::string whole = file(std::string(Name) + ".reg");
    setZones(2, "C:\\0\\other\r\n[x]");
    const Values other = values();
    std::vector<std::pair<std::string, int>> damaged = {{"(missing)", 0}, {"", 0}, {"garbage", 0}};
    for (std::size_t size = 200; size < whole.size() - 2; size += 23) {
        const std::string cut = whole.substr(0, size);
        int zonesLeft = 0;  // the empty line that ends a zone is there, at least the first half of it
        for (auto at = cut.find("00000009\r\n\r"); at != std::string::npos; at = cut.find("00000009\r\n\r", at + 1))
            ++zonesLeft;
        damaged.emplace_back(cut, zonesLeft);
    }
    for (const auto& [bytes, zonesLeft] : damaged) {
        SCOPED_TRACE(bytes);
        for (const ui::Answer answer : {ui::Answer::Yes, ui::Answer::No}) {
            if (bytes == "(missing)")
                system.files.remove(inBackups(std::string(Name) + ".reg"));
            else
                addFile(std::string(Name) + ".reg", bytes);
            restoreZones();
            expectQuestion(zonesLeft, 3, answer);
            endImport();
            EXPECT_EQ(window.tmrImport.enabled(), answer == ui::Answer::Yes);
            if (answer == ui::Answer::Yes) endImport();
            EXPECT_EQ(copied(), answer == ui::Answer::No);
            EXPECT_FALSE(window.tmrImport.enabled());
            if (answer == ui::Answer::No) {
                system.files.remove(inBackups(std::string(CopyName) + ".tvf"));
                system.files.remove(inBackups(std::string(CopyName) + ".reg"));
                setZones(2, "C:\\0\\other\r\n[x]");
            }
            EXPECT_EQ(values(), other);
        }
    }
}

TEST_F(Restoring, PutsBackAlsoWhatNoBackupCarries) {
    setZones(2, "old");
    backUpZones();
    const platform::Bytes permissions{0x1A, 0, 0xFF, 5};
    system.setBinary(zoneKey("1"), "Permissions", permissions);
    system.setText(zoneKey("0"), "", "a default");
    const Values before = values();
    addFile(std::string(Name) + ".reg", "");
    restoreZones();
    expectQuestion(0, 2, ui::Answer::Yes);
    endImport();
    endImport();
    EXPECT_EQ(values(), before);
    const auto kept = system.value(zoneKey("1"), "Permissions");
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->type, platform::RegBinary);
    EXPECT_EQ(kept->data, permissions);
    EXPECT_FALSE(copied());
}

TEST_F(Restoring, RefusesAnExportThatTouchesMoreThanTheZones) {
    setZones(2, "old");
    backUpZones();
    const std::string whole = file(std::string(Name) + ".reg");
    setZones(3, "other");
    const Values other = values();
    const std::string planted = "HKEY_LOCAL_MACHINE\\Software\\Tavimor Tests";
    addFile(std::string(Name) + ".reg", whole + "[" + planted + "]\r\n\"Run\"=\"x\"\r\n");
    restoreZones([&](frmRestore&) {
        desktop.expectMessage("The registry export \"" + inBackups(std::string(Name) + ".reg") +
                                  "\" would change more than the zones: it names \"" + planted +
                                  "\". Nothing has been restored.",
                              ui::Answer::Ok);
    });
    EXPECT_EQ(values(), other);
    EXPECT_FALSE(copied());
    EXPECT_TRUE(system.launcher.started.empty());
}

TEST_F(Restoring, DeletesNothingWhenTheZonesCannotBeCopied) {
    setZones(2, "old");
    backUpZones();
    setZones(3, "other");
    const Values other = values();
    for (const int write : {1, 2}) {
        system.files.watch.failOn("append", write, platform::DiskFull);
        restoreZones([&](frmRestore&) { expectError("frmRestore.cmdRestore_Click", CopyName); });
        EXPECT_EQ(values(), other);
        EXPECT_EQ(system.filesIn(system.path("Backups")).size(), 2u) << "half a copy is none";
    }
    for (const char* function : {"RegEnumKeyExA", "RegEnumValueA", "RegQueryValueExA"}) {
        SCOPED_TRACE(function);
        restoreZones([&](frmRestore&) {
            system.registry.watch.failOn(function, 1, platform::AccessDenied);
            expectError("frmRestore.cmdRestore_Click", "could not be read");
        });
        EXPECT_EQ(values(), other);
        EXPECT_EQ(system.filesIn(system.path("Backups")).size(), 2u);
    }
    // Another program adds a zone, which the copy would lack.
    system.registry.watch.onCall = [&](const char* function) {
        if (std::string(function) != "RegEnumValueA") return;
        system.registry.watch.onCall = nullptr;
        system.setText(zoneKey("3"), "DisplayName", "new");
    };
    restoreZones([&](frmRestore&) { expectError("frmRestore.cmdRestore_Click", "have changed"); });
    EXPECT_EQ(values().size(), other.size() + 2);
    EXPECT_TRUE(system.launcher.started.empty());
}

TEST_F(Restoring, RefusesABackupWithoutZones) {
    setZones(3, "other");
    const Values other = values();
    addFile(std::string(Name) + ".tvf", "Desc=Nothing\r\n");
    addFile(std::string(Name) + ".reg", "REGEDIT4\r\n");
    desktop.use<frmRestore>(
        [&](frmRestore& form) {
            expectError("frmRestore.ParseInfo", "no zones");
            form.ListView1.click(1);
            desktop.expectMessage("This backup holds no zones. Nothing has been restored.", ui::Answer::Ok);
            form.cmdRestore.click();
        },
        [&] { window.mnuFileRestore.click(); });
    EXPECT_EQ(values(), other);
}

// The longer of a backup's files tells how many zones it had.
TEST_F(Restoring, CountsTheZonesOfBothFiles) {
    setZones(3, "old");
    backUpZones();
    const std::string whole = file(std::string(Name) + ".reg");
    addFile(std::string(Name) + ".reg", whole.substr(0, whole.size() - 4));
    const std::string listed = file(std::string(Name) + ".tvf");
    addFile(std::string(Name) + ".tvf", listed.substr(0, listed.find("\r\n", 12) + 2));
    restoreZones();
    expectQuestion(2, 3, ui::Answer::No);
    endImport();
    EXPECT_TRUE(copied());
}

TEST_F(Restoring, TellsOfZonesThatStayBehindAGap) {
    setZones(2, "old");
    backUpZones();
    setZones(6, "other");
    for (const char* zone : {"2", "3"}) system.deleteTree(zoneKey(zone));
    restoreZones([&](frmRestore&) {
        desktop.expectMessage("The registry refused to delete some zones. What they hold beyond the backup stays.",
                              ui::Answer::Ok);
    });
    endImport();
    EXPECT_EQ(texts(window.lvwZones), (Texts{"old", "old", "other", "other"}));
}

// What an editor has misread goes, unless the zone was there before and the value may be the user's.
TEST_F(Restoring, GivesAZoneThatWasNotDeletedTheBackupsValuesAndTakesNone) {
    if (!idleEditor()) GTEST_SKIP() << "the real registry editor writes over the value";
    setZones(1, "old");
    system.setText(zones::ZonesKey, "", "");
    system.setText(zoneKey("3"), "Description", "a\r\n\"New\"=\"b");
    system.setDword(zoneKey("3"), "Flags", 1);
    backUpZones();
    system.setText(zones::ZonesKey, "", "a default");
    system.setText(zoneKey("3"), "New", "mine");
    system.setDword(zoneKey("3"), "Flags", 2);
    restoreZones([&](frmRestore&) {
        desktop.expectMessage("The registry refused to delete some zones. What they hold beyond the backup stays.",
                              ui::Answer::Ok);
    });
    endImport();
    EXPECT_EQ(system.text(zoneKey("3"), "New"), "mine");
    EXPECT_EQ(system.dword(zoneKey("3"), "Flags"), 1u);
    EXPECT_EQ(system.text(zones::ZonesKey, ""), "");
}

// Whatever fails: every value is as before, as asked for or in a listed backup, and the user knows when it is not as
// asked for.
TEST_F(Restoring, LosesNothingAtAnyFailure) {
    if (!system.simulation()) GTEST_SKIP() << "takes a system that fails when it is told to";
    setZones(3, "old");
    backUpZones();
    const Values old = values();
    desktop.patient = true;
    const bool kinds[] = {true, false};  // an editor that works, one that does nothing
    int tried = 0;
    for (const bool works : kinds) {
        if (!works) idleEditor();
        for (const platform::Result code : {platform::AccessDenied, platform::FileNotFound}) {
            for (int n = 1;; ++n) {
                SCOPED_TRACE(std::to_string(n) + " " + std::to_string(code) + (works ? "" : " idle"));
                setZones(4, "other");
                const Values other = values();
                desktop.told.clear();
                std::string failing;
                system.watch.onCall = [&](const char* function) {
                    if (!system.watch.failed()) failing = function;
                };
                restoreZones([&](frmRestore&) { system.watch.failOn(n, code); });
                if (window.tmrImport.enabled()) endImport();
                const bool failed = system.watch.failed();
                system.watch.reset();
                system.watch.onCall = nullptr;
                const Values now = values();
                const std::string backups = listedCopies();
                const auto in = [](const Values& all, const std::string& name) {
                    const auto found = all.find(name);
                    return found == all.end() ? std::string("-") : found->second;
                };
                for (const auto& [name, held] : other) {
                    const std::string is = in(now, name);
                    EXPECT_TRUE(is == held || is == in(old, name) || backedUp(backups, name, held))
                        << failing << " lost " << name;
                }
                EXPECT_TRUE(now == old || !desktop.told.empty()) << failing << ": nobody was told";
                EXPECT_LE(desktop.told.size(), 3u) << failing;
                for (const std::string& name : system.filesIn(system.path("Backups")))
                    if (!name.starts_with(Name)) system.files.remove(inBackups(name));
                ++tried;
                if (!failed) break;
                ASSERT_LT(n, 3000);
            }
        }
    }
    EXPECT_GT(tried, 200);
    desktop.settle();
}
