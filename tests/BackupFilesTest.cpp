#include <gtest/gtest.h>
#include "backup/BackupFile.h"
#include "backup/ExportFile.h"
#include "backup/ZoneFile.h"
#include "util/clsStrings.h"

using namespace backup;
using Lines = std::vector<std::string>;

TEST(BackupName, IsDateAndTimeWithoutLeadingZerosButForTheHour) {
    EXPECT_EQ(baseName({2001, 6, 4, 0, 5, 7}), "6-4-2001 0057");
    EXPECT_EQ(baseName({2001, 12, 31, 14, 0, 0}), "12-31-2001 1400");
    EXPECT_EQ(partnerOf("C:\\B\\A.TVF") + partnerOf("ab"), "C:\\B\\A.regreg");
}

TEST(ExportLine, CarriesTextAndDoublesBackslashesInTheIconOnly) {
    const std::pair<ListedValue, const char*> cases[] = {
        {{"iCON", R"(\)", ValueType::String}, R"("iCON"="\\")"},
        {{"Icons", R"(C:\a)", ValueType::String}, R"("Icons"="C:\a")"},
        {{"Description", R"(say "C:\")", ValueType::String}, R"("Description"="say "C:\"")"},
        {{"", "", ValueType::String}, R"(@="")"},
        {{"", "text", ValueType::String}, "(none)"},
    };
    for (const auto& [value, expected] : cases) {
        EXPECT_EQ(exportLine(value).value_or("(none)"), expected) << value.name;
    }
}

TEST(ZoneFileLines, EndInAnyLineEnd) {
    const std::pair<std::string, Lines> cases[] = {
        {"", {}},
        {"a\nb\rc\r\nd", {"a", "b", "c", "d"}},
        {"a\r\n", {"a"}},
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
    EXPECT_EQ(afterReading({"i;\"n;m\";d"}), "i;\"n;m\";d;;;;");
    for (std::size_t separators = 0; separators <= 10; ++separators)
        EXPECT_EQ(afterReading({seven, std::string(separators, ';')}), separators == 6   ? ";;;;;;"
                                                                       : separators == 2 ? ";;;1;2;3;4"
                                                                                         : seven);
    EXPECT_EQ(countZones({"Desc=x", "i;n;d", "i;n;d", seven, "i;n", ";d;1;2;3;4", "i;n;d"}), 5U);
    EXPECT_EQ(afterReading({seven, "i;say \"n\"m;d"}), seven) << "a description with quotes";
}
