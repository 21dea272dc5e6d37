#include "icons/ExtractIcon.h"

#include <gtest/gtest.h>

#include "app/Application.h"
#include "support/IconFixture.h"
#include "util/trace.h"

namespace {

using platform::Bytes;

constexpr const char* Own = "Tavimor.exe";
constexpr const char* Library = "zones.cpl";
constexpr std::uint8_t OwnSeed = 9, LibrarySeed = 5;

struct ExtractIconTest : IconFixture {
    app::Application program{system.platform()};
    const std::size_t running = basErrors::ProcStack.size();

    ExtractIconTest() {
        addIcon(Own, std::uint16_t{1}, {16, 32}, OwnSeed);
        addIcon(Library, std::uint16_t{4480}, {16, 32, 48}, LibrarySeed);
        addIcon(Library, "NAMED", {16}, LibrarySeed);
    }
    const ui::Picture& extract(const std::string& reference, int size = 32) {
        basMain::ExtractIcon(program.platform, reference, "#", size, box);
        return box.picture();
    }
};

TEST_F(ExtractIconTest, AReferenceIsDrawnOrTheProgramsOwnIconInItsPlace) {
    addDamagedIcon(Library, std::uint16_t{13});
    EXPECT_EQ(extract("zones.cpl#00004480"), picture(32, LibrarySeed));
    EXPECT_EQ(extract(system.path(Library) + "#4480", 16), picture(16, LibrarySeed));
    EXPECT_EQ(extract("zones.cpl#named"), picture(16, LibrarySeed)) << "the nearest size there is";
    for (const char* reference : {"none.dll#1", "zones.cpl#1", "zones.cpl#13", "zones.cpl#", "zones.cpl", "#4480", "",
                                  "\"zones.cpl\"x#4480", "\"zones.cpl#4480"}) {
        box.clear();
        EXPECT_EQ(extract(reference), picture(32, OwnSeed)) << reference;
    }
    system.system.name = "Renamed";
    EXPECT_TRUE(extract("none.dll#1").empty()) << "not even that";
    EXPECT_EQ(basErrors::ProcStack.size(), running) << "an error was shown";
}

TEST_F(ExtractIconTest, TheProgramMayStandInAFolderWithANumberSign) {
    system.platform().files.createFolder(system.path("C#"));
    system.system.folder = system.path("C#");
    addIcon(Own, std::uint16_t{1}, {32}, 3);
    const icons::IconReference own{system.path("Tavimor.exe"), "1"};
    EXPECT_EQ(extract(own.text()), picture(32, 3));
    EXPECT_EQ(icons::referenceOrDefault(system.platform(), own.text()), own);
}

TEST_F(ExtractIconTest, AReferenceIsCutWhereTheBrowserCutsIt) {
    const std::tuple<const char*, std::string, std::string, platform::ResourceId> cases[] = {
        {"inetcpl.cpl#00004480", "inetcpl.cpl", "00004480", std::uint16_t{4480}},
        {"C:\\a b\\c.dll#MAIN", "C:\\a b\\c.dll", "MAIN", "MAIN"},
        {"C:\\C#\\d.dll#5", "C:\\C", "\\d.dll#5", "\\d.dll"},
        {"a.dll#5#6", "a.dll", "5#6", std::uint16_t{5}},
        {"a.dll#65535", "a.dll", "65535", std::uint16_t{65535}},
        {"a.dll#65536", "a.dll", "65536", "65536"},
        {"a.dll#18a", "a.dll", "18a", "18a"},
        {"a.dll#", "a.dll", "", ""},
        {"#5", "", "5", std::uint16_t{5}},
    };
    for (const auto& [text, file, resource, identifier] : cases) {
        const icons::IconReference reference = icons::parseReference(text).value();
        EXPECT_EQ(reference, (icons::IconReference{file, resource}));
        EXPECT_EQ(reference.identifier(), identifier) << text;
        EXPECT_EQ(reference.isUsable(), !file.empty() && !resource.empty()) << text;
        EXPECT_EQ(icons::referenceOrDefault(system.platform(), text).text(), text) << "nothing of it is lost";
    }
    for (const char* none : {"", "a.dll", "\"a.dll\"#5", "a.dll#\"5\"", "\"a#b"}) {
        EXPECT_FALSE(icons::parseReference(none)) << none;
        EXPECT_EQ(icons::referenceOrDefault(system.platform(), none).text(), system.path("Tavimor.exe") + "#1");
    }
}

TEST_F(ExtractIconTest, TheImageIsChosenForThePixelsThatTheScreenHas) {
    addIcon("sizes.dll", std::uint16_t{1}, {16, 32, 48, 64}, 2);
    addIcon("small.dll", std::uint16_t{1}, {16, 32}, 2);
    writeFile("sizes.ico", icons::file(icons::usualImages(2)));
    for (const auto& [dots, size] : {std::pair{96, 32}, {120, 48}, {144, 48}, {192, 64}}) {
        system.desktop.dots = dots;
        EXPECT_EQ(extract("sizes.dll#1"), picture(size, 2)) << dots;
        EXPECT_EQ(extract("small.dll#1"), picture(32, 2)) << dots;
    }
    EXPECT_EQ(basMain::LoadPicture(system.platform(), system.path("sizes.ico"), 24), picture(48, 2));
}

IN_MEMORY_TEST_F(ExtractIconTest, AFillOpensTheFileOfManyEqualIconsOnce) {
    basMain::IconCache cache(system.platform());
    system.modules.watch.reset();
    EXPECT_EQ(cache.Icon({"zones.cpl", "4480"}, 16), picture(16, LibrarySeed));
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(cache.Icon({"zones.cpl", "4480"}, 32), picture(32, LibrarySeed));
        EXPECT_EQ(cache.Icon({"none.dll", std::to_string(i % 3)}, 32), picture(32, OwnSeed));
    }
    // one for zones.cpl, one for the file that is missing, one for the own icon in its place
    EXPECT_EQ(system.modules.watch.calls("LoadLibraryExA"), 3);
}

TEST_F(ExtractIconTest, APictureComesFromAnIconABitmapOrAProgramFile) {
    const Bytes icon = icons::file(icons::usualImages(4));
    for (const char* name : {"a.ico", "a,4480.ico"}) writeFile(name, icon);
    addIcon("b,1.cpl", std::uint16_t{3}, {16}, 7);
    writeFile("text.ico", Bytes{'t', 'e', 'x', 't'});
    icons::ByteWriter file;
    file.u16(0x4D42).fill(8).u32(54).u32(40).u32(2).u32(2).u16(1).u16(24).fill(24).fill(16, 0x77);
    writeFile("a.bmp", file.bytes());
    const ui::Picture bitmap{ui::Picture::Kind::Bitmap, file.bytes().substr(14), 2, 2};
    const std::pair<std::string, ui::Picture> cases[] = {
        {system.path("a.ico"), picture(16, 4)},
        {system.path("a,4480.ico"), picture(16, 4)},
        {system.path("b,1.cpl,3"), picture(16, 7)},
        {system.path("a.bmp"), bitmap},
        {system.path("zones.cpl,4480"), picture(16, LibrarySeed)},
        {"zones.cpl,4481", {}},
        {"zones.cpl,", {}},
        {system.path("text.ico"), {}},
        {"", {}},
    };
    for (const auto& [reference, expected] : cases)
        EXPECT_EQ(basMain::LoadPicture(program.platform, reference), expected) << reference;
    EXPECT_EQ(basMain::LoadPicture(program.platform, system.path("a.ico"), 48), picture(48, 4));
    writeFile("a.bmp", file.bytes().substr(0, 69));
    EXPECT_TRUE(basMain::LoadPicture(program.platform, system.path("a.bmp")).empty());
}

}  // namespace
