#include "backup/BackupFile.h"
#include "backup/ExportFile.h"
#include "backup/ZoneFile.h"
#include "errors/basErrors.h"
#include "support/BackupFixture.h"

using namespace backup;
using Lines = std::vector<std::string>;

TEST(BackupName, IsDateAndTimeWithoutLeadingZerosButForTheHour) {
    EXPECT_EQ(baseName({2001, 6, 4, 14, 5, 7}), "6-4-2001 1457");
    EXPECT_EQ(baseName({2001, 12, 31, 0, 0, 0}), "12-31-2001 0000");
    EXPECT_EQ(partnerOf("C:\\B\\A.TVF"), "C:\\B\\A.reg");
    EXPECT_EQ(partnerOf("ab"), "reg");
}

class ExportLine : public BackupFixture {};

TEST_F(ExportLine, CarriesNumbersAndTextAndDoublesBackslashesInTheIconOnly) {
    const struct {
        ListedValue value;
        const char* line;  // null: not carried
    } cases[] = {
        {{"1200", "00000003 (0,000,000,003)", ValueType::Dword}, R"("1200"=dword:00000003)"},
        {{"Flags", "000000db (0,000,000,219)", ValueType::Dword}, R"("Flags"=dword:000000db)"},
        {{"DisplayName", "Internet", ValueType::String}, R"("DisplayName"="Internet")"},
        {{"Icon", R"(C:\WINDOWS\a.dll#1)", ValueType::String}, R"("Icon"="C:\\WINDOWS\\a.dll#1")"},
        {{"iCON", R"(\)", ValueType::String}, R"("iCON"="\\")"},
        {{"Icons", R"(C:\a)", ValueType::String}, R"("Icons"="C:\a")"},
        {{"Description", R"(say "C:\")", ValueType::String}, R"("Description"="say "C:\"")"},
        {{"Empty", "", ValueType::String}, R"("Empty"="")"},
        {{"", "", ValueType::String}, R"(@="")"},
        {{"", "text", ValueType::String}, nullptr},
        {{"{7839DA25-F5FE-11D0-883B-0080C726DCBB}", "1 A0", ValueType::Binary}, nullptr},
    };
    for (const auto& c : cases) {
        const auto line = exportLine(program.registry, program.strings, c.value);
        EXPECT_EQ(line.value_or("(none)"), c.line ? c.line : "(none)") << c.value.name;
    }
}

TEST(ZoneFileLines, EndInAnyLineEnd) {
    const std::pair<std::string, Lines> cases[] = {
        {"", {}},
        {"a\r\nb\r\n", {"a", "b"}},
        {"a\nb\n", {"a", "b"}},
        {"a\rb\r", {"a", "b"}},
        {"a\r\nb", {"a", "b"}},
        {"\r\n\r\na", {"", "", "a"}},
        {std::string("a\0b\r\n", 5), {std::string("a\0b", 3)}},
    };
    for (const auto& [bytes, lines] : cases) EXPECT_EQ(splitLines(bytes), lines) << bytes;
}

TEST(ZoneFileLines, OfSevenOrThreeFieldsAreTakenAndOthersRepeatTheZoneBefore) {
    const std::string seven = "i;n;d;1;2;3;4";
    const auto afterReading = [](const Lines& lines) {
        clsStrings strings;
        ZoneFields fields;
        for (const std::string& line : lines) readZoneLine(strings, line, fields);
        return joined(fields);
    };
    const std::pair<Lines, std::string> cases[] = {
        {{seven}, seven},
        {{"I;N;D"}, "I;N;D;;;;"},
        {{seven, "I;N;D"}, "I;N;D;1;2;3;4"},
        {{"nonsense"}, ";;;;;;"},
        {{"i;\"n;m\";d"}, "i;\"n;m\";d;;;;"},
    };
    for (const auto& [lines, fields] : cases) EXPECT_EQ(afterReading(lines), fields);
    for (std::size_t separators = 0; separators <= 100; ++separators)
        EXPECT_EQ(afterReading({seven, std::string(separators, ';')}), separators == 6   ? ";;;;;;"
                                                                       : separators == 2 ? ";;;1;2;3;4"
                                                                                         : seven);
    EXPECT_THROW(afterReading({"i;\"n\"m;d"}), basErrors::Error);
}
