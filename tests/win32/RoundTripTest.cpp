// Backup and restore through the windows, with the system's registry editor as importer and as witness: it exports the
// zones before and after, and the two exports are compared value by value. docs/backup-format.md tells what this found.
#include <algorithm>
#include <cstdio>
#include <map>

#include "app/frmMain.h"
#include "backup/frmBackup.h"
#include "backup/frmRestore.h"
#include "support/BackupFixture.h"
#include "win32/WindowsHeaders.h"

namespace {

using namespace platform;

// The lines of an export in UTF-16, as single bytes; characters that need more are spelled "\u20AC".
std::vector<std::string> linesOf(const std::string& bytes) {
    std::vector<std::string> lines(1);
    for (std::size_t at = 2; at + 1 < bytes.size(); at += 2) {
        const auto low = static_cast<unsigned char>(bytes[at]), high = static_cast<unsigned char>(bytes[at + 1]);
        char spelled[16];
        std::snprintf(spelled, sizeof spelled, "\\u%02X%02X", high, low);
        if (high != 0)
            lines.back() += spelled;
        else if (low == '\n')
            lines.emplace_back();
        else if (low != '\r')
            lines.back() += static_cast<char>(low);
    }
    return lines;
}

// "Zones\10|"Flags"" and the data as the registry editor spells it; a key by itself is there with its "|" alone.
using Export = std::map<std::string, std::string>;

Export valuesOf(const std::vector<std::string>& lines) {
    Export values;
    std::string key, *last = nullptr;
    for (const std::string& line : lines) {
        std::size_t end = line.starts_with('@') ? 1 : 0;
        if (line.starts_with('"'))
            for (end = 1; end < line.size() && line[end] != '"'; ++end) end += line[end] == '\\';
        if (line.starts_with('[')) {
            key = line.substr(line.rfind("Zones"), line.rfind(']') - line.rfind("Zones"));
            last = &(values[key + "|"] = "");
        } else if (end > 0) {
            const std::size_t equals = line.find('=', end);
            last = &(values[key + "|" + line.substr(0, equals)] = line.substr(equals + 1));
        } else if (last && !line.empty()) {
            *last += "\n" + line;  // a text with line ends in it, or a long binary value
        }
    }
    return values;
}

constexpr const char* Missing = "(none)";

std::vector<std::string> differences(const Export& before, const Export& after) {
    Export all = before;
    all.insert(after.begin(), after.end());
    const auto in = [](const Export& values, const std::string& name) {
        const auto found = values.find(name);
        return found == values.end() ? Missing : found->second;
    };
    std::vector<std::string> different;
    for (const auto& [name, data] : all)
        if (in(before, name) != in(after, name))
            different.push_back(name + ": " + in(before, name) + " -> " + in(after, name));
    return different;
}

using Texts = std::vector<std::string>;

class RoundTrip : public BackupFixture {
protected:
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
        return valuesOf(linesOf(bytes));
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
        system.setText(key, "DisplayName", "Added " + std::to_string(number));
        system.setText(key, "Description", description);
        system.setText(key, "Icon", icon);
        system.setDword(key, "Flags", 0x80000000u + static_cast<std::uint32_t>(number));
        system.setDword(key, "CurrentLevel", 0xFFFFFFFF);
        system.setDword(key, "1A00", 0x20000);
    }
    void damage(const std::string& key) {
        system.setText(key, "DisplayName", "Damaged");
        system.setDword(key, "Description", 1);
        system.setText(key, "Flags", "no number");
        system.setText(key, "", "a default");
        system.deleteValue(key, "Icon");
        system.setDword(key, "1A00", 3);
        system.setDword(key, "9999", 1);
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
    ASSERT_EQ(before.at("Zones\\10|\"Flags\""), "dword:8000000a");
    backUp("All is well");

    system.deleteTree(zoneKey("11"));
    for (const std::string& zone : order) damage(zoneKey(zone));
    damage(zoneKey("12"));
    system.setText(zones::ZonesKey, "", "a default");
    EXPECT_GE(differences(before, exported()).size(), 8 * order.size());

    restore("All is well", 12);
    EXPECT_EQ(differences(before, exported()), Texts{});
    EXPECT_EQ(window.lvwZones.count(), 12);

    // A zone may be gone altogether, if it was the last.
    system.deleteTree(zoneKey("11"));
    restore("All is well", 12);
    EXPECT_EQ(differences(before, exported()), Texts{});
}

sample::Entry odd(RegType type, std::string_view data, const char* name = "Odd") {
    return {"", name, type, Bytes(data.begin(), data.end())};
}

constexpr RegType Qword = 11;

// Each value stands in a zone of its own, before two that every import should bring back.
TEST_F(RoundTrip, LosesOrChangesWhatTheFormatDoesNotCarry) {
    using namespace std::string_view_literals;
    const struct {
        sample::Entry value;
        Texts changes;
    } cases[] = {
        {odd(RegBinary, "\1\2"), {"\"Odd\": hex:01,02 -> (none)"}},
        {odd(RegSz, "a default\0"sv, ""), {"@: \"a default\" -> (none)"}},
        {odd(RegDword, "\7\0\0\0"sv, ""), {}},
        {odd(RegExpandSz, "%x%\0"sv), {"\"Odd\": hex(2):25,00,78,00,25,00,00,00 -> \"%x%\""}},
        {odd(RegExpandSz, "a\\b\0"sv, "Icon"), {"\"Icon\": hex(2):61,00,5c,00,62,00,00,00 -> \"a\\\\b\""}},
        {odd(RegMultiSz, "A\0B\0\0"sv), {"\"Odd\": hex(7):41,00,00,00,42,00,00,00,00,00 -> \"A\""}},
        {odd(Qword, "A\0\0\0\0\0\0\0"sv), {"\"Odd\": hex(b):41,00,00,00,00,00,00,00 -> \"A\""}},
        {odd(RegNone, "AB"), {"\"Odd\": hex(0):41,42 -> \"AB\""}},
        {odd(RegSz, "  blanks \0"sv), {"\"Odd\": \"  blanks \" -> \"blanks\""}},
        {odd(RegSz, "one\\two\0"sv), {"\"Odd\": \"one\\\\two\" -> \"onetwo\""}},
        {odd(RegSz, "one\\new\0"sv), {"\"Odd\": \"one\\\\new\" -> \"one\\new\""}},
        {odd(RegSz, "one\\read\0"sv), {"\"Odd\": \"one\\\\read\" -> \"one\\read\""}},
        {odd(RegSz, "one\\\\two\0"sv), {"\"Odd\": \"one\\\\\\\\two\" -> \"one\\\\two\""}},
        {odd(RegSz, "folder\\\0"sv), {"\"Odd\": \"folder\\\\\" -> (none)"}},
        {odd(RegSz, "say \"yes\"\0"sv), {"\"Odd\": \"say \\\"yes\\\"\" -> (none)"}},
        {odd(RegSz, "a \"b\" ; c\0"sv), {"\"Odd\": \"a \\\"b\\\" ; c\" -> (none)"}},
        {odd(RegSz, "a\r\nb\0"sv), {"\"Odd\": \"a\\r\\nb\" -> (none)"}},
        {odd(RegSz, "a\n\"New\"=\"b\0"sv),
         {"\"Odd\": \"a\\n\\\"New\\\"=\\\"b\" -> (none)", "\"New\": (none) -> \"b\""}},
        {odd(RegSz, "text\0"sv, "Na\"me"), {"\"Na\\\"me\": \"text\" -> (none)"}},
        {odd(RegSz, "text\0"sv, "Na\\me"), {"\"Na\\\\me\": \"text\" -> (none)", "\"Name\": (none) -> \"text\""}},
        {odd(RegSz, "say \"C:\\x\"\0"sv, "Icon"), {"\"Icon\": \"say \\\"C:\\\\x\\\"\" -> (none)"}},
        {odd(RegSz, "C:\\x\\\0"sv, "ICON"), {}},
    };
    system.deleteTree(zones::ZonesKey);
    Texts expected;
    int count = 0;
    for (const auto& c : cases) {
        const std::string zone = std::to_string(count++);
        sample::Entry entry = c.value;
        entry.path = zoneKey(zone);
        system.set(entry);
        system.setDword(entry.path, "Sure", 1);
        system.setDword(entry.path, "Surely", 2);
        for (const std::string& change : c.changes) expected.push_back("Zones\\" + zone + "|" + change);
    }
    const Export before = exported();
    backUp("odd");
    restore("odd", count);
    std::sort(expected.begin(), expected.end());
    Texts found = differences(before, exported());
    std::sort(found.begin(), found.end());
    EXPECT_EQ(found, expected);
}

// To Wine's registry editor of 64 bits "\0" is the end of everything there is to read, to that of 32 bits it spoils the
// value alone.
TEST_F(RoundTrip, LosesAtLeastTheValueThatHasABackslashWithAZeroBehindIt) {
    system.deleteTree(zones::ZonesKey);
    for (const char* zone : {"0", "1", "2"}) system.setText(zoneKey(zone), "DisplayName", zone);
    system.setText(zoneKey("1"), "Description", "C:\\0\\new");
    const Export before = exported();
    backUp("zero");
    restore("zero", 3);
    Texts lost{"Zones\\1|\"Description\": \"C:\\\\0\\\\new\" -> (none)"};
    if (sizeof(void*) == 8)
        for (const char* behind : {"Zones\\1|\"DisplayName\": \"1\"", "Zones\\2|: ", "Zones\\2|\"DisplayName\": \"2\""})
            lost.push_back(std::string(behind) + " -> (none)");
    EXPECT_EQ(differences(before, exported()), lost);
}

TEST_F(RoundTrip, WritesQuestionMarksForLettersOfAnotherCodePage) {
    HKEY zone = nullptr;
    const std::string path = zoneKey("5").substr(zoneKey("5").find('\\') + 1);
    ASSERT_EQ(RegCreateKeyA(HKEY_CURRENT_USER, path.c_str(), &zone), ERROR_SUCCESS);
    const wchar_t letters[] = L"\u0416!";
    RegSetValueExW(zone, L"DisplayName", 0, REG_SZ, reinterpret_cast<const BYTE*>(letters), sizeof letters);
    RegCloseKey(zone);
    const Export before = exported();
    backUp("letters");
    restore("letters", 2);
    EXPECT_EQ(differences(before, exported()), Texts{"Zones\\5|\"DisplayName\": \"\\u0416!\" -> \"?!\""});
}

// Zones are numbered without gaps, and have no keys in them: what is otherwise is not deleted before the import.
TEST_F(RoundTrip, LeavesWhatWasAddedWhereTheDeletionDoesNotReach) {
    system.seedZones();
    const Export before = exported();
    backUp("whole");
    system.setText(zoneKey("6"), "Added", "behind a gap");
    system.setText(zoneKey("6"), "DisplayName", "Damaged");
    system.deleteTree(zoneKey("2"));
    system.deleteTree(zoneKey("3"));
    system.setText(zoneKey("1"), "Added", "beside a key");
    system.setText(zoneKey("1"), "DisplayName", "Damaged");
    system.makeKey(zoneKey("1\\Key"));
    system.setDword(zones::ZonesKey, "SelfHealCount", 1);
    system.setDword(zoneKey("Key"), "Added", 1);
    restore("whole", 7, "The registry refused to delete some zones. What they hold beyond the backup stays.");
    EXPECT_EQ(
        differences(before, exported()),
        (Texts{"Zones\\1\\Key|: (none) -> ", "Zones\\1|\"Added\": (none) -> \"beside a key\"",
               "Zones\\6|\"Added\": (none) -> \"behind a gap\"", "Zones\\Key|: (none) -> ",
               "Zones\\Key|\"Added\": (none) -> dword:00000001", "Zones|\"SelfHealCount\": (none) -> dword:00000001"}));
}

}  // namespace
