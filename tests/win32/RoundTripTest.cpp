// Backup and restore through the windows, with the system's registry editor as importer and as witness: it exports the
// zones before and after, and the two exports are compared value by value. docs/backup-format.md tells what this found.
#include <set>

#include "backup/frmBackup.h"
#include "backup/frmRestore.h"
#include "support/User.h"
#include "win32/WindowsHeaders.h"

namespace {

using namespace platform;

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
Export differences(const Export& before, const Export& after) {
    Export different;
    for (const std::string& line : before)
        if (!after.contains(line)) different.insert("- " + line);
    for (const std::string& line : after)
        if (!before.contains(line)) different.insert("+ " + line);
    return different;
}

struct RoundTrip : User {
    void runEditor(const std::string& arguments) {
        Launcher& launcher = program.platform.launcher;
        Launcher::Process process = 0;
        const std::string editor = system.system.GetWindowsDirectoryA() + "\\regedit.exe";
        EXPECT_EQ(launcher.start(editor, arguments, process), Success);
        system.endPrograms();
        EXPECT_FALSE(launcher.running(process));
        launcher.close(process);
    }
    Export exported() {
        const std::string file = system.path("witness.reg");
        runEditor("/e \"" + file + "\" \"" + zones::ZonesKey + "\"");
        const std::string bytes = system.readFile("witness.reg").value_or("");
        system.platform().files.remove(file);
        EXPECT_TRUE(bytes.starts_with("\xFF\xFE")) << "no export: " << bytes.substr(0, 100);
        return linesOf(bytes);
    }
    void damage(const std::string& key) {
        system.setText(key, "", "a default");
        system.setText(key, "Sure", "no number");
        system.setDword(key, "Surely", 3);
        system.setText(key, "Added", "text");
        system.setBinary(key, "Rogue", Bytes{1, 2, 3});
        system.deleteValue(key, "Odd");
    }
};

sample::Entry odd(RegType type, std::string_view data, const char* name = "Odd") {
    return {"", name, type, Bytes(data.begin(), data.end())};
}

constexpr RegType Qword = 11;

// One row of the table in docs/backup-format.md: a value, what the registry editor alone makes of its line, and what is
// different after a restore.
struct Row {
    sample::Entry stored;
    Export byTheEditor, afterwards;
};

std::vector<Row> table() {
    using namespace std::string_view_literals;
    const Export kept;
    return {
        {odd(RegSz, "one\\two\0"sv), {"- \"Odd\"=\"one\\\\two\"", "+ \"Odd\"=\"onetwo\""}, kept},
        {odd(RegSz, "one\\new\0"sv), {"- \"Odd\"=\"one\\\\new\"", "+ \"Odd\"=\"one\\new\""}, kept},
        {odd(RegSz, "one\\\\two\0"sv), {"- \"Odd\"=\"one\\\\\\\\two\"", "+ \"Odd\"=\"one\\\\two\""}, kept},
        {odd(RegSz, "folder\\\0"sv), {"- \"Odd\"=\"folder\\\\\""}, kept},
        {odd(RegSz, "say \"yes\"\0"sv), {"- \"Odd\"=\"say \\\"yes\\\"\""}, kept},
        {odd(RegSz, "a\n\"New\"=\"b\0"sv), {"- \"Odd\"=\"a\\n\\\"New\\\"=\\\"b\"", "+ \"New\"=\"b\""}, kept},
        {odd(RegSz, "text\0"sv, "Na\"me"), {"- \"Na\\\"me\"=\"text\""}, kept},
        {odd(RegSz, "text\0"sv, "Na\\me"), {"- \"Na\\\\me\"=\"text\"", "+ \"Name\"=\"text\""}, kept},
        {odd(RegSz, ";[x]=@ 100% 'that' #1\0"sv), kept, kept},
        {odd(RegSz, "dword:1\0"sv), kept, kept},
        {odd(RegSz, "Caf\xE9 \x80\0"sv), kept, kept},
        {odd(RegSz, "\0"sv), kept, kept},
        {odd(RegSz, std::string(3000, 'x') + '\0'), kept, kept},
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

// Each value stands in a zone of its own, before two that every import should bring back.
TEST_F(RoundTrip, BringsBackWhatTheFormatCarriesWhateverTheEditorMakesOfIt) {
    system.deleteTree(zones::ZonesKey);
    system.setText(zones::ZonesKey, "", "");
    Export byTheEditor, afterwards;
    int count = 0;
    for (Row row : table()) {
        const std::string zone = std::to_string(count++);
        row.stored.path = zoneKey(zone);
        system.set(row.stored);
        system.setDword(row.stored.path, "Sure", 1);
        system.setDword(row.stored.path, "Surely", 0x8000000A);
        const auto inZone = [&](std::string change) { return change.insert(2, "Zones\\" + zone + "] "); };
        for (const std::string& change : row.byTheEditor) byTheEditor.insert(inZone(change));
        for (const std::string& change : row.afterwards) afterwards.insert(inZone(change));
    }
    const Export before = exported();
    ASSERT_TRUE(before.contains("Zones\\10] \"Surely\"=dword:8000000a"));
    desktop.use<frmBackup>([](frmBackup& form) { form.cmdBackup.click(); }, [&] { window().mnuFileBackup.click(); });
    system.deleteTree(zones::ZonesKey);
    runEditor("/s \"" + inBackups(system.filesIn(system.path("Backups"), "*.reg").at(0)) + "\"");
    EXPECT_EQ(differences(before, exported()), byTheEditor);

    // Zones have no keys in them, and nothing else is a zone: what is otherwise is not deleted before the import.
    system.deleteTree(zoneKey("11"));
    for (int zone = 0; zone <= count; ++zone) damage(zoneKey(std::to_string(zone)));
    system.setText(zones::ZonesKey, "", "a default");
    system.makeKey(zoneKey("4\\Key"));
    system.setDword(zones::ZonesKey, "SelfHealCount", 1);
    system.setDword(zoneKey("Key"), "Added", 1);
    const auto restore = [&](frmRestore& form) {
        form.ListView1.click(1);
        EXPECT_EQ(form.lvwZones.count(), count);
        desktop.expectMessage("zones stay");
        form.cmdRestore.click();
    };
    desktop.use<frmRestore>(restore, [&] { window().mnuFileRestore.click(); });
    system.endPrograms();
    window().tmrImport.tick();
    for (const char* added :
         {"\\4\\Key] ", "\\4] @=\"a default\"", "\\4] \"Added\"=\"text\"", "\\4] \"Rogue\"=hex:01,02,03", "\\Key] ",
          "\\Key] \"Added\"=dword:00000001", "] \"SelfHealCount\"=dword:00000001"})
        afterwards.insert(std::string("+ Zones") + added);
    EXPECT_EQ(differences(before, exported()), afterwards);
}

}  // namespace
