// Backup and restore through the windows, with the system's registry editor as importer and as witness: it exports the
// zones before and after, and the two exports are compared value by value. docs/backup-format.md tells what this found.
#include <set>

#include "app/frmMain.h"
#include "backup/frmBackup.h"
#include "backup/frmRestore.h"
#include "support/BackupFixture.h"
#include "win32/WindowsHeaders.h"

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
        system.files.remove(file);
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
    void restore(const std::string& description, int zoneCount, const char* told = nullptr) {
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
        system.endPrograms();
        window.tmrImport.tick();
        EXPECT_FALSE(window.tmrImport.enabled());
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

// Each value stands in a zone of its own, before two that every import should bring back.
TEST_F(RoundTrip, LosesOrChangesWhatTheFormatDoesNotCarry) {
    using namespace std::string_view_literals;
    const std::pair<sample::Entry, Texts> cases[] = {
        {odd(RegBinary, "\1\2"), {"- \"Odd\"=hex:01,02"}},
        {odd(RegSz, "a default\0"sv, ""), {"- @=\"a default\""}},
        {odd(RegExpandSz, "%x%\0"sv), {"- \"Odd\"=hex(2):25,00,78,00,25,00,00,00", "+ \"Odd\"=\"%x%\""}},
        {odd(RegMultiSz, "A\0B\0\0"sv), {"- \"Odd\"=hex(7):41,00,00,00,42,00,00,00,00,00", "+ \"Odd\"=\"A\""}},
        {odd(Qword, "A\0\0\0\0\0\0\0"sv), {"- \"Odd\"=hex(b):41,00,00,00,00,00,00,00", "+ \"Odd\"=\"A\""}},
        {odd(RegSz, "  blanks \0"sv), {"- \"Odd\"=\"  blanks \"", "+ \"Odd\"=\"blanks\""}},
        {odd(RegSz, "one\\two\0"sv), {"- \"Odd\"=\"one\\\\two\"", "+ \"Odd\"=\"onetwo\""}},
        {odd(RegSz, "one\\new\0"sv), {"- \"Odd\"=\"one\\\\new\"", "+ \"Odd\"=\"one\\new\""}},
        {odd(RegSz, "one\\\\two\0"sv), {"- \"Odd\"=\"one\\\\\\\\two\"", "+ \"Odd\"=\"one\\\\two\""}},
        {odd(RegSz, "folder\\\0"sv), {"- \"Odd\"=\"folder\\\\\""}},
        {odd(RegSz, "say \"yes\"\0"sv), {"- \"Odd\"=\"say \\\"yes\\\"\""}},
        {odd(RegSz, "a\n\"New\"=\"b\0"sv), {"- \"Odd\"=\"a\\n\\\"New\\\"=\\\"b\"", "+ \"New\"=\"b\""}},
        {odd(RegSz, "text\0"sv, "Na\"me"), {"- \"Na\\\"me\"=\"text\""}},
        {odd(RegSz, "text\0"sv, "Na\\me"), {"- \"Na\\\\me\"=\"text\"", "+ \"Name\"=\"text\""}},
        {odd(RegSz, "C:\\x\\\0"sv, "ICON"), {}},
    };
    system.deleteTree(zones::ZonesKey);
    Texts expected;
    int count = 0;
    for (auto [entry, changes] : cases) {
        const std::string zone = std::to_string(count++);
        entry.path = zoneKey(zone);
        system.set(entry);
        system.setDword(entry.path, "Sure", 1);
        system.setDword(entry.path, "Surely", 2);
        for (const std::string& change : changes)
            expected.push_back(std::string(change).insert(2, "Zones\\" + zone + "] "));
    }
    const Export before = exported();
    backUp("odd");
    restore("odd", count);
    std::sort(expected.begin(), expected.end());
    Texts found = differences(before, exported());
    std::sort(found.begin(), found.end());
    EXPECT_EQ(found, expected);
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
