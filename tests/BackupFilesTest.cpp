#include "backup/BackupFile.h"
#include "backup/ExportFile.h"
#include "backup/ZoneFile.h"
#include "errors/basErrors.h"
#include "support/BackupFixture.h"

using namespace backup;
using Lines = std::vector<std::string>;

TEST(BackupName, IsDateAndTimeWithoutLeadingZerosButForTheHour) {
    const struct {
        platform::LocalTime time;
        const char* name;
    } cases[] = {{{2001, 6, 4, 14, 5, 7}, "6-4-2001 1457"},
                 {{2001, 12, 31, 0, 0, 0}, "12-31-2001 0000"},
                 {{1999, 1, 10, 9, 59, 59}, "1-10-1999 095959"}};
    for (const auto& c : cases) EXPECT_EQ(baseName(c.time), c.name);
}

TEST(BackupName, OfTheExportReplacesTheLastThreeLetters) {
    EXPECT_EQ(partnerOf("C:\\B\\6-4-2001 1457.tvf"), "C:\\B\\6-4-2001 1457.reg");
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
    const struct {
        const char* name;
        std::string bytes;
        Lines lines;
    } cases[] = {{"nothing", "", {}},
                 {"CR LF", "a\r\nb\r\n", {"a", "b"}},
                 {"LF only", "a\nb\n", {"a", "b"}},
                 {"CR only", "a\rb\r", {"a", "b"}},
                 {"no end", "a\r\nb", {"a", "b"}},
                 {"empty lines", "\r\n\r\na", {"", "", "a"}},
                 {"the CR of a torn end", "a\r\nb\r", {"a", "b"}},
                 {"a NUL", std::string("a\0b\r\n", 5), {std::string("a\0b", 3)}}};
    for (const auto& c : cases) EXPECT_EQ(splitLines(c.bytes), c.lines) << c.name;
}

TEST(ZoneFileLines, BeginTheDescriptionBehindFiveCharacters) {
    const struct {
        const char *line, *description;
    } cases[] = {{"Desc=a;b#c", "a;b#c"}, {"Desc=", ""}, {"Desc", ""}, {"", ""}, {"12345x", "x"}};
    for (const auto& c : cases) EXPECT_EQ(descriptionOf(c.line), c.description) << c.line;
}

namespace {

// The fields after reading `lines` one after the other.
std::string afterReading(const Lines& lines) {
    clsStrings strings;
    ZoneFields fields;
    for (const std::string& line : lines) readZoneLine(strings, line, fields);
    return joined(fields);
}

}  // namespace

TEST(ZoneFileLines, OfSevenOrThreeFieldsAreTakenAndOthersRepeatTheZoneBefore) {
    const std::string seven = "i;n;d;1;2;3;4";
    const struct {
        Lines lines;
        const char* fields;
    } cases[] = {{{seven}, "i;n;d;1;2;3;4"},          {{"I;N;D"}, "I;N;D;;;;"},
                 {{seven, "I;N;D"}, "I;N;D;1;2;3;4"}, {{seven, "a;b;c;d;e"}, "i;n;d;1;2;3;4"},
                 {{seven, ""}, "i;n;d;1;2;3;4"},      {{seven, "1;2;3;4;5;6;7;8"}, "i;n;d;1;2;3;4"},
                 {{seven, ";;;;;;"}, ";;;;;;"},       {{"nonsense"}, ";;;;;;"},
                 {{"i;\"n;m\";d"}, "i;\"n;m\";d;;;;"}};
    for (const auto& c : cases) EXPECT_EQ(afterReading(c.lines), c.fields);
    for (int separators = 0; separators <= 100; ++separators) {
        const std::string line(static_cast<std::size_t>(separators), ';');
        const bool taken = separators == 2 || separators == 6;
        EXPECT_EQ(afterReading({seven, line}), separators == 6 ? ";;;;;;" : taken ? ";;;1;2;3;4" : seven) << separators;
    }
}

TEST(ZoneFileLines, WithTextBehindAClosingQuoteAreRefusedByTheTokenizer) {
    EXPECT_THROW(afterReading({"i;\"n\"m;d"}), basErrors::Error);
}
