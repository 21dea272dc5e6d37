// Backup and restore through the windows, with the system's registry editor as importer and as witness: it exports the
// zones before and after, and the two exports are compared value by value. docs/backup-format.md tells what this found.
#include <set>

#include "app/frmMain.h"
#include "backup/frmBackup.h"
#include "backup/frmRestore.h"
#include "support/BackupFixture.h"
#include "win32/Desktop.h"
#include "win32/WindowsHeaders.h"

#include <windows.h>

namespace {

using namespace platform;

using Texts = BackupFixture::Texts;
// The lines of an export, each after its key: "Zones\10] "Flags"=dword:00000001"; a key by itself is a line as well.
using Export = std::set<std::string>;

// The registry editor writes UTF-16.
Export linesOf(const std::string& bytes) {
    Export lines;
    std::string key, line;
    for (std::size_t at = 2; at + 1 < bytes.size(); at += 2) {
        if (bytes[at] == '\n') {
            const bool isKey = line.starts_with('[');
            if (isKey) key = line.substr(line.rfind("Zones")) + " ";
            lines.insert(isKey ? key : key + line);
            line.clear();
        } else if (bytes[at] != '\r') {
            line.append(bytes, at, bytes[at + 1] ? 2 : 1);
        }
    }
    return lines;
}

// "- " what is gone, "+ " what has come.
Texts differences(const Export& before, const Export& after) {
    Texts different;
    for (const std::string& line : before)
        if (!after.contains(line)) different.push_back("- " + line);
    for (const std::string& line : after)
        if (!before.contains(line)) different.push_back("+ " + line);
    return different;
}

struct RoundTrip : BackupFixture {
    frmMain window{program};

    void SetUp() override { system.seedBrowser(); }
    void TearDown() override { window.unload(); }

    Export exported() {
        const std::string file = system.path("witness.reg");
        const std::string editor = system.system.GetWindowsDirectoryA() + "\\regedit.exe";
        Launcher& launcher = program.platform.launcher;
        Launcher::Process process = 0;
        EXPECT_EQ(launcher.start(editor, "/e \"" + file + "\" \"" + zones::ZonesKey + "\"", process), Success);
        system.endPrograms();
        EXPECT_FALSE(launcher.running(process));
        launcher.close(process);
        const std::string bytes = system.readFile("witness.reg").value_or("");
        system.platform().files.remove(file);
        EXPECT_TRUE(bytes.starts_with("\xFF\xFE")) << "no export: " << bytes.substr(0, 100);
        return linesOf(bytes);
    }
    void backUp(const std::string& description) {
        if (!window.loaded()) window.load();
        desktop.expectForm<frmBackup>([&](frmBackup& form) {
            form.txtDescription.type(description);
            form.cmdBackup.click();
            EXPECT_FALSE(form.loaded());
        });
        window.mnuFileBackup.click();
    }
    void importWithEditor(const std::string& name) {
        const std::string editor = system.system.GetWindowsDirectoryA() + "\\regedit.exe";
        Launcher::Process process = 0;
        EXPECT_EQ(program.platform.launcher.start(editor, "/s \"" + system.path("Backups\\" + name) + "\"", process),
                  Success);
        system.endPrograms();
        program.platform.launcher.close(process);
    }
    void restore(
        const std::string& description, int zoneCount, const char* told = nullptr,
        const std::function<void()>& meanwhile = [] {}) {
        desktop.expectForm<frmRestore>([&](frmRestore& form) {
            int item = 1;
            while (item < form.ListView1.count() && form.ListView1.item(item).text != description) ++item;
            form.ListView1.click(item);
            EXPECT_EQ(form.ListView1.item(item).text, description);
            EXPECT_EQ(form.lvwZones.count(), zoneCount);
            if (told) desktop.expectMessage(told, ui::Answer::Ok);
            form.cmdRestore.click();
            EXPECT_FALSE(form.loaded());
        });
        window.mnuFileRestore.click();
        meanwhile();
        system.endPrograms();
        window.tmrImport.tick();
    }
    void addZone(int number, const std::string& description, const std::string& icon) {
        const std::string key = zoneKey(std::to_string(number));
        system.setText(key, "", "");
        system.setText(key, "Description", description);
        system.setText(key, "Icon", icon);
        system.setDword(key, "Flags", 0x80000000u + static_cast<std::uint32_t>(number));
        system.setDword(key, "1A00", 0x20000);
    }
    void damage(const std::string& key) {
        system.setText(key, "DisplayName", "Damaged");
        system.setDword(key, "Description", 1);
        system.setText(key, "Flags", "no number");
        system.setText(key, "", "a default");
        system.deleteValue(key, "Icon");
        system.setDword(key, "1A00", 3);
        system.setText(key, "Added", "text");
        system.setBinary(key, "Rogue", Bytes{1, 2, 3});
    }
};

TEST_F(RoundTrip, GivesEveryZoneBackAsItWas) {
    system.seedZones();
    int added = 7;
    for (const std::string& description :
         {std::string(), std::string(";[x]=@ 100% 'that' #1"), std::string("Caf\xE9 \x80"), std::string(3000, 'x'),
          std::string("dword:1")}) {
        addZone(added, description, "C:\\Program Files\\a.dll#0" + std::to_string(added));
        ++added;
    }
    system.setText(zones::ZonesKey, "", "");
    const Texts order = system.keys(zones::ZonesKey);
    ASSERT_EQ(order.size(), 12u);
    const Export before = exported();
    ASSERT_TRUE(before.contains("Zones\\10] \"Flags\"=dword:8000000a"));
    backUp("All is well");

    system.deleteTree(zoneKey("11"));
    for (const std::string& zone : order) damage(zoneKey(zone));
    damage(zoneKey("12"));
    system.setText(zones::ZonesKey, "", "a default");
    EXPECT_GE(differences(before, exported()).size(), 8 * order.size());

    restore("All is well", 12);
    EXPECT_EQ(differences(before, exported()), Texts{});
    EXPECT_EQ(window.lvwZones.count(), 12);
}

sample::Entry odd(RegType type, std::string_view data, const char* name = "Odd") {
    return {"", name, type, Bytes(data.begin(), data.end())};
}

constexpr RegType Qword = 11;

// One row of the table in docs/backup-format.md: a value, what the registry editor alone makes of its line, and what is
// different after a restore.
struct Row {
    sample::Entry stored;
    Texts byTheEditor, afterwards;
};

std::vector<Row> table() {
    using namespace std::string_view_literals;
    const Texts kept;
    return {
        {odd(RegSz, "one\\two\0"sv), {"- \"Odd\"=\"one\\\\two\"", "+ \"Odd\"=\"onetwo\""}, kept},
        {odd(RegSz, "one\\new\0"sv), {"- \"Odd\"=\"one\\\\new\"", "+ \"Odd\"=\"one\\new\""}, kept},
        {odd(RegSz, "one\\\\two\0"sv), {"- \"Odd\"=\"one\\\\\\\\two\"", "+ \"Odd\"=\"one\\\\two\""}, kept},
        {odd(RegSz, "folder\\\0"sv), {"- \"Odd\"=\"folder\\\\\""}, kept},
        {odd(RegSz, "say \"yes\"\0"sv), {"- \"Odd\"=\"say \\\"yes\\\"\""}, kept},
        {odd(RegSz, "a\n\"New\"=\"b\0"sv), {"- \"Odd\"=\"a\\n\\\"New\\\"=\\\"b\"", "+ \"New\"=\"b\""}, kept},
        {odd(RegSz, "text\0"sv, "Na\"me"), {"- \"Na\\\"me\"=\"text\""}, kept},
        {odd(RegSz, "text\0"sv, "Na\\me"), {"- \"Na\\\\me\"=\"text\"", "+ \"Name\"=\"text\""}, kept},
        {odd(RegSz, "a=b [x] ;c\0"sv), kept, kept},
        {odd(RegSz, "C:\\x\\\0"sv, "ICON"), kept, kept},
        {odd(RegDword, "\7\0\0\0"sv, ""), kept, kept},
        {odd(RegBinary, "\1\2"), {"- \"Odd\"=hex:01,02"}, {"- \"Odd\"=hex:01,02"}},
        {odd(RegSz, "a default\0"sv, ""), {"- @=\"a default\""}, {"- @=\"a default\""}},
        {odd(RegExpandSz, "%x%\0"sv),
         {"- \"Odd\"=hex(2):25,00,78,00,25,00,00,00", "+ \"Odd\"=\"%x%\""},
         {"- \"Odd\"=hex(2):25,00,78,00,25,00,00,00", "+ \"Odd\"=\"%x%\""}},
        {odd(RegMultiSz, "A\0B\0\0"sv),
         {"- \"Odd\"=hex(7):41,00,00,00,42,00,00,00,00,00", "+ \"Odd\"=\"A\""},
         {"- \"Odd\"=hex(7):41,00,00,00,42,00,00,00,00,00", "+ \"Odd\"=\"A\""}},
        {odd(Qword, "A\0\0\0\0\0\0\0"sv),
         {"- \"Odd\"=hex(b):41,00,00,00,00,00,00,00", "+ \"Odd\"=\"A\""},
         {"- \"Odd\"=hex(b):41,00,00,00,00,00,00,00", "+ \"Odd\"=\"A\""}},
        {odd(RegSz, "  blanks \0"sv),
         {"- \"Odd\"=\"  blanks \"", "+ \"Odd\"=\"blanks\""},
         {"- \"Odd\"=\"  blanks \"", "+ \"Odd\"=\"blanks\""}},
    };
}

Texts sorted(Texts texts) {
    std::sort(texts.begin(), texts.end());
    return texts;
}

// Each value stands in a zone of its own, before two that every import should bring back.
TEST_F(RoundTrip, BringsBackWhatTheFormatCarriesWhateverTheEditorMakesOfIt) {
    system.deleteTree(zones::ZonesKey);
    Texts byTheEditor, afterwards;
    int count = 0;
    for (Row row : table()) {
        const std::string zone = std::to_string(count++);
        row.stored.path = zoneKey(zone);
        system.set(row.stored);
        system.setDword(row.stored.path, "Sure", 1);
        system.setDword(row.stored.path, "Surely", 2);
        const auto inZone = [&](const std::string& change) {
            return std::string(change).insert(2, "Zones\\" + zone + "] ");
        };
        for (const std::string& change : row.byTheEditor) byTheEditor.push_back(inZone(change));
        for (const std::string& change : row.afterwards) afterwards.push_back(inZone(change));
    }
    const Export before = exported();
    backUp("odd");
    system.deleteTree(zones::ZonesKey);
    importWithEditor(system.filesIn(system.path("Backups"), "*.reg").at(0));
    EXPECT_EQ(sorted(differences(before, exported())), sorted(byTheEditor));
    restore("odd", count);
    EXPECT_EQ(sorted(differences(before, exported())), sorted(afterwards));
}

// "\0" costs the value, and ends the file for Wine's editor of 64 bits: what comes after it is not imported.
TEST_F(RoundTrip, BringsBackWhatComesAfterAZeroThatStopsTheEditor) {
    system.deleteTree(zones::ZonesKey);
    for (const char* zone : {"0", "1"}) {
        system.setText(zoneKey(zone), "Description", "C:\\0\\new");
        system.setDword(zoneKey(zone), "Flags", 3);
    }
    const Export before = exported();
    backUp("zero");
    system.deleteTree(zones::ZonesKey);
    importWithEditor(system.filesIn(system.path("Backups"), "*.reg").at(0));
    constexpr bool EditorStops = sizeof(void*) == 8;
    EXPECT_EQ(system.exists(zoneKey("1")), !EditorStops);
    EXPECT_FALSE(system.text(zoneKey("0"), "Description"));
    restore("zero", 2, nullptr, [] {});
    EXPECT_EQ(differences(before, exported()), Texts{});
}

// What it had not yet written is written by the program.
TEST_F(RoundTrip, CompletesWhatAnEditorThatIsKilledHalfWayLeaves) {
    system.deleteTree(zones::ZonesKey);
    for (int zone = 0; zone < 40; ++zone)
        for (int value = 0; value < 60; ++value)
            system.setDword(zoneKey(std::to_string(zone)), std::to_string(1000 + value), 3);
    const Export before = exported();
    backUp("many");
    restore("many", 40, nullptr, [&] {
        while (system.keys(zones::ZonesKey).empty()) {}
        for (const Launcher::Process editor : system.launcher.open)
            TerminateProcess(reinterpret_cast<HANDLE>(editor), 1);
    });
    EXPECT_EQ(differences(before, exported()), Texts{});
}

TEST_F(RoundTrip, PutsTheZonesBackWhenTheExportIsLocked) {
    system.seedZones();
    backUp("locked");
    system.setText(zoneKey("3"), "DisplayName", "say \"hi\"");
    const Export before = exported();
    const std::string file = system.path("Backups\\" + system.filesIn(system.path("Backups"), "*.reg").at(0));
    const HANDLE lock = CreateFileA(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(lock, INVALID_HANDLE_VALUE);
    restore("locked", 7, nullptr, [&] {
        desktop.expectMessage(
            "Only 0 of the 7 zones of this backup could be restored. Put the zones back as they were "
            "before?",
            ui::Answer::Yes);
    });
    CloseHandle(lock);
    EXPECT_TRUE(window.tmrImport.enabled());
    system.endPrograms();
    window.tmrImport.tick();
    EXPECT_EQ(differences(before, exported()), Texts{});
    EXPECT_EQ(system.filesIn(system.path("Backups")).size(), 2u);
}

// A tool that the machine's user closes the session with would cut the backup in two.
TEST_F(RoundTrip, LetsTheSessionEndOnlyWhenNoBackupIsBeingWritten) {
    system.seedZones();
    window.load();
    window.show();
    const auto endSession = [&] {
        Texts answers;
        for (const ui::Form* form : desktop.forms()) {
            const auto native = reinterpret_cast<HWND>(win32::Desktop::nativeHandle(*form));
            answers.push_back(SendMessageA(native, WM_QUERYENDSESSION, 0, 0) ? "yes" : "no");
        }
        return answers;
    };
    EXPECT_EQ(endSession(), Texts{"yes"});
    int looks = 0;
    desktop.onDoEvents = [&] {
        if (++looks > 1) return;
        EXPECT_EQ(endSession(), (Texts{"no", "no"}));
        for (const ui::Form* form : desktop.forms()) {
            const auto native = reinterpret_cast<HWND>(win32::Desktop::nativeHandle(*form));
            EXPECT_FALSE(IsWindowEnabled(native)) << form->name();
            SendMessageA(native, WM_CLOSE, 0, 0);
            EXPECT_TRUE(form->loaded());
        }
    };
    backUp("whole");
    desktop.onDoEvents = nullptr;
    EXPECT_GT(looks, 0);
    EXPECT_EQ(endSession(), Texts{"yes"});
    EXPECT_TRUE(IsWindowEnabled(reinterpret_cast<HWND>(win32::Desktop::nativeHandle(window))));
}

// Zones are numbered without gaps, and have no keys in them: what is otherwise is not deleted before the import.
TEST_F(RoundTrip, LeavesWhatWasAddedWhereTheDeletionDoesNotReach) {
    system.seedZones();
    const Export before = exported();
    backUp("whole");
    for (const char* zone : {"1", "6"}) {
        system.setText(zoneKey(zone), "Added", zone);
        system.setText(zoneKey(zone), "DisplayName", "Damaged");
    }
    system.deleteTree(zoneKey("2"));
    system.deleteTree(zoneKey("3"));  // so that the last numbers come after a gap
    system.makeKey(zoneKey("1\\Key"));
    system.setDword(zones::ZonesKey, "SelfHealCount", 1);
    system.setDword(zoneKey("Key"), "Added", 1);
    restore("whole", 7, "The registry refused to delete some zones. What they hold beyond the backup stays.");
    EXPECT_EQ(
        differences(before, exported()),
        (Texts{"+ Zones\\1\\Key] ", "+ Zones\\1] \"Added\"=\"1\"", "+ Zones\\6] \"Added\"=\"6\"", "+ Zones\\Key] ",
               "+ Zones\\Key] \"Added\"=dword:00000001", "+ Zones] \"SelfHealCount\"=dword:00000001"}));
}

}  // namespace
