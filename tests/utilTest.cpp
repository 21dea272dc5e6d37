#include "support/TestSystem.h"

#include <gtest/gtest.h>

#include "util/basSystem.h"
#include "util/clsFileInfo.h"
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
