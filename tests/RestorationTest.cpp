// Restoring as a whole: what the program does before, during and after an import.
#include "backup/Restoration.h"

#include "backup/frmBackup.h"
#include "backup/frmRestore.h"
#include "support/User.h"

namespace {

const std::string Name = "3-9-2000 1457";      // of the first backup by the test system's clock
const std::string CopyName = "3-9-2000 1458";  // and of the next

}  // namespace

// With the main window, whose list shows what is restored.
struct Restoring : User {
    using Tree = TestSystem::Tree;
    Tree old, other;  // what the zones were when they were backed up, and are before they are restored

    // As many zones as the registry is to have, each with a text and a number that tell where they come from.
    void setZones(int count, const std::string& text) {
        system.deleteTree(zones::ZonesKey);
        for (int zone = 0; zone < count; ++zone)
            set(std::to_string(zone), {{"DisplayName", text}, {"Flags", "#" + std::to_string(text.size())}});
    }
    void setOthers(int count = 3) {
        setZones(count, "other");
        other = zonesNow();
    }
    void backUpZones(int count = 2, const std::string& text = "old") {
        if (count > 0) setZones(count, text);
        old = zonesNow();
        window().RebuildList();
        desktop.expectForm<frmBackup>([](frmBackup& form) {
            form.txtDescription.type("Good");
            form.pressEnter();
        });
        window().mnuFileBackup.click();
        setOthers();
    }
    void restoreZones(const std::function<void()>& before = [] {}) {
        bool refused = true;
        desktop.use<frmRestore>(
            [&](frmRestore& form) {
                for (int item = 1; item <= form.ListView1.count(); ++item)
                    if (form.ListView1.item(item).tag == inBackups(Name + ".tvf")) form.ListView1.click(item);
                before();
                form.cmdRestore.click();
                refused = form.loaded();
            },
            [&] { window().mnuFileRestore.click(); });
        EXPECT_NE(refused, window().tmrImport.enabled());
    }
    void endImport() {
        system.endPrograms();
        window().tmrImport.tick();
    }
    Tree zonesNow() { return system.tree(zones::ZonesKey); }
    // A registry editor that is started and imports nothing. The real one cannot be stopped half-way.
    void idleEditor() { system.launcher.onStart = {}; }
    Texts backups() { return system.filesIn(system.path("Backups")); }
    bool copied() { return file(CopyName + ".tvf") != "(no file)"; }
    // Nothing is begun, and so the zones are as before and in no copy.
    void expectNothingBegun() {
        EXPECT_EQ(zonesNow(), other);
        EXPECT_EQ(backups().size(), 2u) << "half a copy is none";
        EXPECT_TRUE(system.launcher.started.empty());
    }
    // Does what a restore needs to end, and ends well.
    void expectRestored() {
        endImport();
        EXPECT_EQ(zonesNow(), old);
        EXPECT_FALSE(copied());
    }
};

TEST_F(Restoring, StartsTheRegistryEditorOnTheExportAndDoesNotWait) {
    backUpZones();
    window().RebuildList();
    restoreZones();
    ASSERT_EQ(system.launcher.started.size(), 1u);
    EXPECT_EQ(system.launcher.started[0].program, system.system.GetWindowsDirectoryA() + "\\regedit.exe");
    EXPECT_EQ(system.launcher.started[0].arguments, "/s \"" + inBackups(Name + ".reg") + "\"");
    EXPECT_TRUE(file(CopyName + ".tvf").starts_with("Desc=Zones before restoring \"Good\"\r\n"));
    expectRestored();
    EXPECT_EQ(names(), (Texts{"old", "old"}));
    EXPECT_FALSE(window().tmrImport.enabled());
    EXPECT_TRUE(system.launcher.open.empty());
    EXPECT_EQ(backups().size(), 2u) << "the copy is gone";
    setOthers();
    restoreZones();
    window().unload();
    EXPECT_TRUE(system.launcher.open.empty());
    EXPECT_TRUE(copied()) << "which stays when the program is closed meanwhile";
    system.endPrograms();
}

IN_MEMORY_TEST_F(Restoring, LetsNothingElseBeginWhileTheEditorRuns) {
    idleEditor();
    backUpZones(6);
    restoreZones();
    setZones(6, "half");
    frmMain& w = window();
    w.RebuildList();
    w.lvwZones.click(6);
    const std::function<void()> refused[] = {
        [&] { w.mnuFileBackup.click(); },    [&] { w.mnuFileRestore.click(); },
        [&] { w.cmdZoneOption(0).click(); }, [&] { w.mnuEditAdd.click(); },
        [&] { w.cmdZoneOption(2).click(); }, [&] { w.pressKey(ui::FormKey::Refresh); }};
    for (const auto& action : refused) {
        desktop.expectMessage("restoring");
        action();
        desktop.settle();
    }
    w.tmrImport.tick();
    EXPECT_TRUE(w.tmrImport.enabled());
    EXPECT_EQ(names()[0], "half") << "not below the editor";
    system.endPrograms();
    // Not below an open dialog, which works on the selected zone.
    use<frmBackup>([&](frmBackup&) {
        w.tmrImport.tick();
        EXPECT_EQ(names()[0], "half");
    });
    expectRestored();
    EXPECT_EQ(names()[0], "old");
    backUpZones();  // again
}

// Texts that a registry editor misreads, or is stopped by.
TEST_F(Restoring, WritesWhatTheEditorDidNotBring) {
    const char* texts[] = {"C:\\0\\new",       "say \"hi\"", "end\\", "a=b [x] ;c", "one\r\ntwo",
                           "a\r\n\"New\"=\"b", "Caf\xE9",    "\"",    "100%",       "",
                           "one\n\n[sic]",     "\\\\srv\\a", "'",     "last"};
    for (const char*& text : texts)
        set(std::to_string(&text - texts), {{"Description", text},
                                            {"Icon", std::string(text) + "#1"},
                                            {"Na\"me", "quoted"},
                                            {"Na\\me", "with a backslash"},
                                            {"", ""},
                                            {"1A\\00", "#4294967295"}});
    backUpZones(0);
    restoreZones();
    expectRestored();
    if (!system.inMemory()) return;
    setOthers();
    system.launcher.watch.failOn("start", 1, platform::AccessDenied);
    restoreZones();
    expectRestored();
}

// A letter that this program cannot tell is not written over what the editor has made of it.
TEST_F(Restoring, KeepsWhatTheEditorBroughtOfAnExportInUtf16) {
    backUpZones(1, "Caf\xE9");
    std::string wide = "\xFF\xFE";
    for (const char c : "Windows Registry Editor Version 5.00" + file(Name + ".reg").substr(8)) wide += {c, '\0'};
    addFile(Name + ".reg", wide);
    system.launcher.onStart = [&](const auto&) { setZones(1, "Caf\xE9"); };
    restoreZones();
    expectRestored();
}

// What an editor would import unseen may touch anything.
IN_MEMORY_TEST_F(Restoring, DoesWithoutARegistryEditorWhenTheExportCanBeRead) {
    backUpZones();
    restoreZones([&] { system.files.watch.failOn("read", 1, platform::AccessDenied); });
    EXPECT_TRUE(system.launcher.started.empty()) << "but it can be read by then";
    expectRestored();
    setOthers();
    system.platform().files.remove("C:\\WINDOWS\\regedit.exe");
    restoreZones();
    EXPECT_TRUE(system.launcher.started.empty());
    expectRestored();
    setOthers();
    system.files.addFile("regedit.exe", "");  // in the current folder
    restoreZones([&] { system.system.watch.failOn("GetWindowsDirectoryA", 1, platform::AccessDenied); });
    EXPECT_TRUE(system.launcher.started.empty());
    expectRestored();
    setOthers();
    removeFile(Name + ".reg");
    restoreZones([&] { desktop.expectMessage("no editor|" + inBackups(Name + ".reg")); });
    EXPECT_EQ(zonesNow(), other);
    EXPECT_FALSE(copied());
}

IN_MEMORY_TEST_F(Restoring, GoesOnWithoutItsExportAndTellsWhatCannotBeRestoredPutBackOrRemoved) {
    idleEditor();
    backUpZones();
    restoreZones();
    removeFile(Name + ".reg");
    system.files.watch.failOn("remove", 2, platform::AccessDenied);
    expectError("frmMain.tmrImport_Timer", CopyName + ".reg");
    expectRestored();  // and half a copy is not listed
    setOthers();
    restoreZones();
    desktop.expectMessage("restored in part|0|2", ui::Answer::Yes);
    endImport();
    system.registry.watch.failOn("RegSetValueExA", 1, platform::AccessDenied);
    desktop.expectMessage("put back in part|2|3");
    endImport();
    EXPECT_EQ(backups().size(), 4u) << "the copy stays";
    system.deleteTree(zones::ZonesKey);
    restoreZones([&] { expectError("clsRegistry.DeleteZone", "There are no zones to delete."); });
    desktop.expectMessage("restored in part, no copy|0|2");
    endImport();
}

TEST_F(Restoring, AsksWhenAnExportBringsFewerZonesAndPutsThemBackAsTheyWere) {
    backUpZones(3, "say \"old\"");
    const std::string whole = file(Name + ".reg");
    // Also with what no backup carries.
    const auto setOdd = [&](const std::string& line) {
        setZones(2, "C:\\0\\other\r\n" + line);
        system.setBinary(zoneKey("1"), "Permissions", {0x1A, 0, 0xFF, 5});
        system.setText(zoneKey("0"), "", "a default");
        other = zonesNow();
    };
    std::vector<std::pair<std::string, int>> damaged = {{"(missing)", 0}, {"", 0}, {"garbage", 0}};
    for (std::size_t size = 200; size < whole.size() - 2; size += 23) {
        const std::string cut = whole.substr(0, size);
        int zonesLeft = 0;  // the empty line that ends a zone is there, at least the first half of it
        for (auto at = cut.find("00000009\r\n\r"); at != std::string::npos; at = cut.find("00000009\r\n\r", at + 1))
            ++zonesLeft;
        damaged.emplace_back(cut, zonesLeft);
    }
    for (const auto& [bytes, zonesLeft] : damaged) {
        // A copy that an editor would take for more than the zones is put back without one.
        const bool foreign = zonesLeft == 0;
        setOdd(foreign ? " [HKEY_LOCAL_MACHINE\\Software\\Tavimor Tests]" : "[x]");
        for (const bool putBack : {true, false}) {
            SCOPED_TRACE(bytes);
            bytes == "(missing)" ? removeFile(Name + ".reg") : addFile(Name + ".reg", bytes);
            system.launcher.started.clear();
            restoreZones();
            desktop.expectMessage("restored in part|" + std::to_string(zonesLeft) + "|3",
                                  putBack ? ui::Answer::Yes : ui::Answer::No,
                                  [&] { window().tmrImport.tick(); });  // which asks no second time
            endImport();
            EXPECT_EQ(window().tmrImport.enabled(), putBack);
            if (putBack) endImport();
            EXPECT_FALSE(window().tmrImport.enabled());
            EXPECT_EQ(system.launcher.started.size(), putBack && !foreign ? 2u : 1u);
            EXPECT_EQ(copied(), !putBack);
            if (putBack) {
                EXPECT_EQ(zonesNow(), other);
                continue;
            }
            for (const char* end : {".tvf", ".reg"}) removeFile(CopyName + end);
        }
    }
}

IN_MEMORY_TEST_F(Restoring, DeletesNothingWhenTheZonesCannotBeCopied) {
    backUpZones();
    for (const int write : {1, 2}) {
        system.files.watch.failOn("append", write, platform::DiskFull);
        restoreZones([&] { expectError("frmRestore.cmdRestore_Click", CopyName); });
        expectNothingBegun();
    }
    const std::tuple<const char*, int, const char*> cases[] = {
        {"RegEnumKeyExA", 1, "The zones could not be read from the registry."},
        {"RegEnumValueA", 1, "3-9-2000 1458.reg\" is incomplete."},
        {"RegEnumValueA", 7, "The zones could not be read from the registry."},
        {"RegQueryValueExA", 1, "3-9-2000 1458.tvf\" is incomplete."}};
    for (const auto& [function, call, told] : cases) {
        SCOPED_TRACE(function);
        restoreZones([&, function = function, call = call, told = told] {
            system.registry.watch.failOn(function, call, platform::AccessDenied);
            expectError("frmRestore.cmdRestore_Click", told);
        });
        expectNothingBegun();
    }
    // Another program renames a zone when all have been copied, so that the copy lacks one.
    int values = 0;
    system.registry.watch.onCall = [&](const std::string& function) {
        values += function == "RegEnumValueA";
        if (function != "RegEnumKeyExA" || values < 12) return;
        system.deleteTree(zoneKey("2"));
        addZone("3");
        other = zonesNow();
    };
    restoreZones([&] {
        expectError("frmRestore.cmdRestore_Click",
                    "The zones have changed while they were being copied. Nothing has been restored.");
    });
    system.registry.watch.onCall = nullptr;
    expectNothingBegun();
}

// What an editor has misread goes, unless the zone was there before and the value may be the user's.
IN_MEMORY_TEST_F(Restoring, GivesAZoneThatWasNotDeletedTheBackupsValuesAndTakesNone) {
    idleEditor();
    setZones(1, "old");
    system.setText(zones::ZonesKey, "", "");
    set("3", {{"Description", "a\r\n\"New\"=\"b"}, {"Flags", "#1"}});
    backUpZones(0);
    setZones(1, "other");
    system.setText(zones::ZonesKey, "", "a default");
    set("3", {{"Description", "a\r\n\"New\"=\"b"}, {"Flags", "#2"}, {"New", "mine"}});
    restoreZones([&] { desktop.expectMessage("zones stay"); });
    endImport();
    old["3|New"] = "mine";
    EXPECT_EQ(zonesNow(), old);
}

// Whatever fails: every value is as before, as asked for or in a listed backup, and the user knows when it is not as
// asked for.
IN_MEMORY_TEST_F(Restoring, LosesNothingAtAnyFailure) {
    backUpZones(3);
    desktop.patient = true;
    std::string failing;
    // The values that are in a listed backup but the one that is restored: "key|name=text".
    const auto backedUp = [&] {
        std::set<std::string> all;
        for (const std::string& name : system.filesIn(system.path("Backups"), "*.tvf"))
            if (name != Name + ".tvf")
                for (const auto& entry : sample::readRegistryFile(file(name.substr(0, name.size() - 3) + "reg")))
                    all.insert(entry.path + "|" + entry.name + "=" + system.shown(entry));
        return all;
    };
    const auto tryToRestore = [&](int n, platform::Result code) {
        setOthers(4);
        desktop.told.clear();
        system.watch.onCall = [&](const char* function) {
            if (!system.watch.failed()) failing = function;
        };
        restoreZones([&] { system.watch.failOn(n, code); });
        if (window().tmrImport.enabled()) endImport();
        const bool failed = system.watch.failed();
        system.watch.reset();
        system.watch.onCall = nullptr;
        Tree now = zonesNow();
        const std::set<std::string> backups = backedUp();
        for (const auto& [name, held] : other) {
            const bool restored = now.contains(name)
                                      ? now[name] == held || (old.contains(name) && now[name] == old[name])
                                      : !old.contains(name);
            EXPECT_TRUE(restored || backups.contains(zoneKey(name) + "=" + held) || name.find('|') == std::string::npos)
                << failing << " lost " << name;
        }
        if (desktop.told.empty()) {
            EXPECT_EQ(now, old) << failing << ": nobody was told";
        }
        EXPECT_LE(desktop.told.size(), 3u) << failing;
        for (const std::string& name : this->backups())
            if (!name.starts_with(Name)) removeFile(name);
        return failed;
    };
    int tried = 0;
    for (const bool works : {true, false}) {
        if (!works) idleEditor();
        for (const platform::Result code : {platform::AccessDenied, platform::FileNotFound}) {
            SCOPED_TRACE(std::to_string(code) + (works ? "" : " idle"));
            for (int n = 1; tryToRestore(n, code); ++n, ++tried) ASSERT_LT(n, 3000);
        }
    }
    EXPECT_GT(tried, 200);
    desktop.settle();
}
