// Restoring as a whole: what the program does before, during and after an import.
#include "backup/Restoration.h"

#include <map>

#include "app/frmMain.h"
#include "backup/frmBackup.h"
#include "backup/frmRestore.h"
#include "editing/frmAdd.h"
#include "support/BackupFixture.h"

// With the main window, whose list shows what is restored.
struct Restoring : BackupFixture {
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
        desktop.expectMessage("restored in part|" + std::to_string(restored) + "|" + std::to_string(wanted), answer,
                              [&] { window.tmrImport.tick(); });  // which asks no second time
    }
    // A registry editor that is started and imports nothing. The real one cannot be stopped half-way.
    void idleEditor() { system.launcher.onStart = {}; }
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

IN_MEMORY_TEST_F(Restoring, LetsNothingElseBeginWhileTheEditorRuns) {
    idleEditor();
    setZones(6, "old");
    backUpZones();
    restoreZones();
    setZones(6, "half");
    window.RebuildList();
    window.lvwZones.click(6);
    const std::function<void()> refused[] = {
        [&] { window.mnuFileBackup.click(); },    [&] { window.mnuFileRestore.click(); },
        [&] { window.cmdZoneOption(0).click(); }, [&] { window.mnuEditAdd.click(); },
        [&] { window.cmdZoneOption(2).click(); }, [&] { window.pressKey(ui::FormKey::Refresh); }};
    for (const auto& action : refused) {
        desktop.expectMessage("restoring");
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
        if (!starts && !system.inMemory()) break;
        setZones(3, "other");
        if (!starts) system.launcher.watch.failOn("start", 1, platform::AccessDenied);
        restoreZones();
        endImport();
        EXPECT_EQ(values(), old);
        EXPECT_FALSE(copied());
    }
}

IN_MEMORY_TEST_F(Restoring, DoesWithoutARegistryEditorWhenTheExportCanBeRead) {
    setZones(2, "old");
    backUpZones();
    const Values old = values();
    setZones(3, "other");
    const Values other = values();
    system.platform().files.remove("C:\\WINDOWS\\regedit.exe");
    restoreZones();
    EXPECT_TRUE(system.launcher.started.empty());
    endImport();
    EXPECT_EQ(values(), old);

    setZones(3, "other");
    system.platform().files.remove(inBackups(std::string(Name) + ".reg"));
    restoreZones([&](frmRestore&) { desktop.expectMessage("no editor|" + inBackups(std::string(Name) + ".reg")); });
    EXPECT_EQ(values(), other);
    EXPECT_FALSE(copied());
}

// What an editor would import unseen may touch anything.
IN_MEMORY_TEST_F(Restoring, LooksThroughAnExportOrDoesNotImportIt) {
    setZones(2, "old");
    backUpZones();
    const Values old = values();
    setZones(3, "other");
    restoreZones([&](frmRestore&) { system.files.watch.failOn("read", 1, platform::AccessDenied); });
    EXPECT_TRUE(system.launcher.started.empty());
    endImport();
    EXPECT_EQ(values(), old) << "it could be read by then";
    EXPECT_FALSE(copied());

    idleEditor();
    setZones(3, "other");
    restoreZones();
    system.platform().files.remove(inBackups(std::string(Name) + ".reg"));
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
                system.platform().files.remove(inBackups(std::string(Name) + ".reg"));
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
                system.platform().files.remove(inBackups(std::string(CopyName) + ".tvf"));
                system.platform().files.remove(inBackups(std::string(CopyName) + ".reg"));
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
        desktop.expectMessage("restoring too much|" + inBackups(std::string(Name) + ".reg") + "|" + planted);
    });
    EXPECT_EQ(values(), other);
    EXPECT_FALSE(copied());
    EXPECT_TRUE(system.launcher.started.empty());
}

IN_MEMORY_TEST_F(Restoring, DeletesNothingWhenTheZonesCannotBeCopied) {
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
            desktop.expectMessage("restoring nothing");
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
    restoreZones([&](frmRestore&) { desktop.expectMessage("zones stay"); });
    endImport();
    EXPECT_EQ(texts(window.lvwZones), (Texts{"old", "old", "other", "other"}));
}

// What an editor has misread goes, unless the zone was there before and the value may be the user's.
IN_MEMORY_TEST_F(Restoring, GivesAZoneThatWasNotDeletedTheBackupsValuesAndTakesNone) {
    idleEditor();
    setZones(1, "old");
    system.setText(zones::ZonesKey, "", "");
    system.setText(zoneKey("3"), "Description", "a\r\n\"New\"=\"b");
    system.setDword(zoneKey("3"), "Flags", 1);
    backUpZones();
    system.setText(zones::ZonesKey, "", "a default");
    system.setText(zoneKey("3"), "New", "mine");
    system.setDword(zoneKey("3"), "Flags", 2);
    restoreZones([&](frmRestore&) { desktop.expectMessage("zones stay"); });
    endImport();
    EXPECT_EQ(system.text(zoneKey("3"), "New"), "mine");
    EXPECT_EQ(system.dword(zoneKey("3"), "Flags"), 1u);
    EXPECT_EQ(system.text(zones::ZonesKey, ""), "");
}

// Whatever fails: every value is as before, as asked for or in a listed backup, and the user knows when it is not as
// asked for.
IN_MEMORY_TEST_F(Restoring, LosesNothingAtAnyFailure) {
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
                    if (!name.starts_with(Name)) system.platform().files.remove(inBackups(name));
                ++tried;
                if (!failed) break;
                ASSERT_LT(n, 3000);
            }
        }
    }
    EXPECT_GT(tried, 200);
    desktop.settle();
}
