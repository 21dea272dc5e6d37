#include "support/TestSystem.h"

#include <gtest/gtest.h>

#include "backup/ExportFile.h"
#include "backup/RegistryExport.h"
#include "simulated/System.h"
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
}

TEST(Util, AFolderIsNoFile) {
    TestSystem system;
    system.writeFile("file.txt", "text");
    for (const auto& [path, file] : {std::pair{system.programFolder(), false}, {system.path("file.txt"), true}}) {
        EXPECT_EQ(basSystem::FolderExists(system.platform(), basSystem::QualifyPath(path)), !file);
        EXPECT_EQ(basSystem::FileExists(system.platform(), path), file);
    }
}

TEST(Util, BackslashesAndZerosAtTheEnd) {
    for (const std::string path : {"C:\\WINDOWS", "C:\\WINDOWS\\"}) {
        EXPECT_EQ(basSystem::QualifyPath(path), "C:\\WINDOWS\\");
        EXPECT_EQ(basSystem::UnQualifyPath(path), "C:\\WINDOWS");
    }
    EXPECT_EQ(basSystem::UnQualifyPath("C:\\"), "C:\\") << "C: is another place";
    EXPECT_EQ(basSystem::QualifyPath("") + basSystem::UnQualifyPath(""), "");
    EXPECT_EQ(basSystem::TrimNull("a\0b\0"s) + basSystem::TrimNull("\0"s) + basSystem::TrimNull("c"), "ac");
}

// Code page 932: "\x83\\" and "\x83|" are letters of kana, "\x83p" is another one than "\x83P".
TEST(Util, ACharacterOfTwoBytesIsNeitherCutNorTakenForItsSecond) {
    struct Japanese : simulated::System {
        bool IsDBCSLeadByte(std::uint8_t byte) override {
            return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
        }
    } japanese;
    util::readLeadBytes(japanese);
    EXPECT_EQ(basSystem::QualifyPath("C:\\\x83\\"), "C:\\\x83\\\\");
    EXPECT_EQ(basSystem::UnQualifyPath("C:\\\x83\\"), "C:\\\x83\\");
    EXPECT_EQ(basSystem::UnQualifyPath("C:\\\x83\\\\"), "C:\\\x83\\");
    TestSystem system;
    EXPECT_EQ(clsFileInfo(system.platform(), "C:\\a\x83\\b.ico").Name(), "a\x83\\b.ico");
    EXPECT_EQ(util::upper("a\x83p\x83"), "A\x83p\x83");
    EXPECT_EQ(util::lower("A\x83P"), "a\x83P");
    EXPECT_TRUE(util::equalFolded("A\x83p", "a\x83p"));
    EXPECT_FALSE(util::equalFolded("\x83p", "\x83P"));
    clsStrings strings;
    EXPECT_EQ(strings.Initialise("a\x83|b|\x83||c", "|"), 3);
    EXPECT_EQ(strings.ElementAsString(1), "a\x83|b");
    EXPECT_EQ(strings.Initialise("\"|\"|\x83|b", "|,"), 2);
    EXPECT_EQ(strings.Replace("\x83\\a\\b", "\\", "\\\\"), "\x83\\a\\\\b");
    ListedValue icon{"Icon", "C:\\\x83\\\\a.dll#1"};
    const auto line = backup::exportLine(icon);
    EXPECT_EQ(line, "\"Icon\"=\"C:\\\\\x83\\\\\\a.dll#1\"");
    {
        const std::string head = "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\A]\r\n";
        backup::RegistryExport file(head + *line + "\r\n");
        std::optional<backup::RegistryExport::Item> item;
        do item = file.next();
        while (item && item->kind != backup::RegistryExport::Kind::Value);
        ASSERT_TRUE(item);
        EXPECT_EQ(item->value.text, icon.text);
    }
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

}  // namespace
