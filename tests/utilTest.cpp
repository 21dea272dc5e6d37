#include "support/TestSystem.h"

#include <gtest/gtest.h>

#include "backup/ExportFile.h"
#include "backup/RegistryExport.h"
#include "simulated/System.h"
#include "util/Error.h"
#include "util/basSystem.h"
#include "util/characters.h"
#include "util/clsFileInfo.h"
#include "util/clsStrings.h"
#include "util/numbers.h"
#include "util/systemText.h"

namespace {

using namespace std::string_literals;

TEST(Util, PathsAreTakenApart) {
    TestSystem system;
    // Folder|base name|extension.
    const std::pair<const char*, const char*> cases[] = {
        {"C:\\WINDOWS\\inetcpl.CPL", "C:\\WINDOWS\\|inetcpl|CPL"},
        {"C:\\Pro.gram\\readme", "C:\\Pro.gram\\|readme|"},
        {"a.b.ico", "|a.b|ico"},
        {"C:x.", "C:|x|"},
    };
    for (const auto& [path, parts] : cases) {
        const clsFileInfo file(system.platform(), path);
        EXPECT_EQ(file.Folder() + "|" + file.BaseName() + "|" + file.Extension(), parts);
        EXPECT_EQ(file.Folder() + file.Name(), path);
    }
    for (const std::string path : {"C:\\WINDOWS", "C:\\WINDOWS\\"})
        EXPECT_EQ(basSystem::QualifyPath(path) + basSystem::UnQualifyPath(path), "C:\\WINDOWS\\C:\\WINDOWS");
    EXPECT_EQ(basSystem::UnQualifyPath("C:\\"), "C:\\") << "C: is another place";
    EXPECT_EQ(basSystem::QualifyPath("") + basSystem::UnQualifyPath(""), "");
    EXPECT_EQ(basSystem::TrimNull("a\0b\0"s) + basSystem::TrimNull("\0"s) + basSystem::TrimNull("c"), "ac");
    system.writeFile("file.txt", "text");
    for (const auto& [path, file] : {std::pair{system.programFolder(), false}, {system.path("file.txt"), true}}) {
        EXPECT_EQ(basSystem::FolderExists(system.platform(), basSystem::QualifyPath(path)), !file);
        EXPECT_EQ(basSystem::FileExists(system.platform(), path), file);
    }
}

// Code page 932: "\x83\\" and "\x83|" are letters of kana, "\x83p" is another one than "\x83P".
TEST(Util, ACharacterOfTwoBytesIsNeitherCutNorTakenForItsSecond) {
    struct Japanese : simulated::System {
        bool IsDBCSLeadByte(std::uint8_t byte) override {
            return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
        }
    } japanese;
    util::readLeadBytes(japanese);
    TestSystem system;
    const std::pair<std::string, const char*> cases[] = {
        {basSystem::QualifyPath("C:\\\x83\\"), "C:\\\x83\\\\"},
        {basSystem::UnQualifyPath("C:\\\x83\\"), "C:\\\x83\\"},
        {basSystem::UnQualifyPath("C:\\\x83\\\\"), "C:\\\x83\\"},
        {clsFileInfo(system.platform(), "C:\\a\x83\\b.ico").Name(), "a\x83\\b.ico"},
        {util::upper("a\x83p\x83"), "A\x83p\x83"},
        {util::lower("A\x83P"), "a\x83P"},
        {clsStrings().Replace("\x83\\a\\b", "\\", "\\\\"), "\x83\\a\\\\b"},
    };
    for (const auto& [is, expected] : cases) EXPECT_EQ(is, expected);
    EXPECT_TRUE(util::equalFolded("A\x83p", "a\x83p"));
    EXPECT_FALSE(util::equalFolded("\x83p", "\x83P"));
    clsStrings strings;
    EXPECT_EQ(strings.Initialise("a\x83|b|\x83||c", "|"), 3);
    EXPECT_EQ(strings.ElementAsString(1), "a\x83|b");
    EXPECT_EQ(strings.Initialise("\"|\"|\x83|b", "|,"), 2);
    const std::string line = "\"Icon\"=\"C:\\\\\x83\\\\\\a.dll#1\"";
    EXPECT_EQ(backup::exportLine({"Icon", "C:\\\x83\\\\a.dll#1"}), line);
    backup::RegistryExport file("REGEDIT4\r\n\r\n" + line + "\r\n");
    auto item = file.next();
    while (item && item->kind != backup::RegistryExport::Kind::Value) item = file.next();
    ASSERT_TRUE(item);
    EXPECT_EQ(item->value.text, "C:\\\x83\\\\a.dll#1");
    simulated::System plain;
    util::readLeadBytes(plain);
}

TEST(Util, ASystemCodeIsASentenceWithTheNameInIt) {
    TestSystem system;
    constexpr platform::Result BadExe = 193;
    const std::string text = util::systemText(system.platform(), BadExe, "a.dll");
    EXPECT_EQ(text.find("%1"), std::string::npos) << text;
    EXPECT_NE(text.find("a.dll"), std::string::npos) << text;  // where is up to the system
    EXPECT_EQ(util::systemText(system.platform(), 0x2BADF00D, "a.dll"), "System error 732819469.");
}

TEST(Util, WholeNumbersMayBeGrouped) {
    for (const char* text : {"219", "0,000,000,219", " 00219 "}) EXPECT_EQ(util::wholeNumber(text), 219u) << text;
    for (const char* text : {"", " ", ",", ",1", "4294967296", "99999999999999999999", "-1", "+1", "1.5", "2 1", "a"})
        EXPECT_EQ(util::wholeNumber(text), std::nullopt) << text;
}

// ---- lines of elements

using Elements = std::vector<std::string>;

// After another line; of a line that is refused there are no elements.
Elements split(const std::string& text, const std::string& delimiters) {
    clsStrings strings;
    strings.Initialise("old,line", ",");
    std::int32_t count = 0;
    try {
        count = strings.Initialise(text, delimiters);
    } catch (const util::Error& error) {
        EXPECT_EQ(error.number(), 0x80040064);
    }
    Elements elements;
    for (std::int32_t i = 1; i <= count; ++i) elements.push_back(strings.ElementAsString(i));
    for (const std::int32_t none : {-1, 0, count + 1, count + 2}) EXPECT_EQ(strings.ElementAsString(none), "");
    return elements;
}

TEST(clsStrings, LinesAreSplitAtDelimitersOutsideQuotesOrRefused) {
    const std::tuple<std::string, std::string, Elements> cases[] = {
        {"", ",", {""}},
        {"a", "", {"a"}},
        {"a,b,,c", ",", {"a", "b", "", "c"}},
        {",,,", ",", {"", "", "", ""}},
        {"x=\"a,b\",y", ",", {"x=\"a,b\"", "y"}},
        {"\"a\"\"b,\",c", ",;", {"\"a\"\"b,\"", "c"}},
        {"a,\"b;c", ",;", {"a", "\"b;c"}},
        {"a;b,\"c\"", ",;", {"a", "b", "\"c\""}},
        {"a\"b\"c", "\"", {"a", "b", "c"}},
        {"a\0b,\0"s, ",", {"a\0b"s, "\0"s}},
        {"a\0b"s, "\0"s, {"a", "b"}},
        {std::string(65536, 'x') + ",\xFF", ",", {std::string(65536, 'x'), "\xFF"}},
        // a character behind a closing quote
        {"\"ab\"c,d", ",", {}},
        {"a,\"\" x", ",", {}},
        {"\"a\"\"b\"x", ",", {}},
    };
    for (const auto& [text, delimiters, elements] : cases) EXPECT_EQ(split(text, delimiters), elements) << text;
}

TEST(clsStrings, ReplacementsAreNotSearchedAgain) {
    const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
        {"abc", "", "x", "abc"}, {"aaa", "a", "aa", "aaaaaa"},       {"aaa", "aa", "b", "ba"},
        {"Aa", "a", "", "A"},    {"C:\\a", "\\", "\\\\", "C:\\\\a"}, {"\0a\0"s, "\0"s, "0", "0a0"},
    };
    for (const auto& [text, find, with, result] : cases) EXPECT_EQ(clsStrings().Replace(text, find, with), result);
}

}  // namespace
