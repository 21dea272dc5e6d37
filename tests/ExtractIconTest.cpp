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
    const std::string own = system.path("Tavimor.exe") + "#1";
    EXPECT_EQ(extract(own), picture(32, 3));
    const icons::IconReference reference = icons::referenceOrDefault(system.platform(), own);
    EXPECT_EQ(reference, (icons::IconReference{system.path("Tavimor.exe"), "1"}));
}

TEST_F(ExtractIconTest, AReferenceIsCutWhereTheBrowserCutsIt) {
    const struct {
        const char *text, *file, *resource;
        platform::ResourceId identifier;
        bool isUsable;
    } cases[] = {
        {"inetcpl.cpl#00004480", "inetcpl.cpl", "00004480", std::uint16_t{4480}, true},
        {"C:\\a b\\c.dll#MAIN", "C:\\a b\\c.dll", "MAIN", "MAIN", true},
        {"C:\\C#\\d.dll#5", "C:\\C", "\\d.dll#5", "\\d.dll", true},
        {"a.dll#5#6", "a.dll", "5#6", std::uint16_t{5}, true},
        {"a.dll#", "a.dll", "", "", false},
        {"#5", "", "5", std::uint16_t{5}, false},
    };
    for (const auto& c : cases) {
        const auto reference = icons::parseReference(c.text);
        ASSERT_TRUE(reference) << c.text;
        EXPECT_EQ(reference->file, c.file);
        EXPECT_EQ(reference->resource, c.resource);
        EXPECT_EQ(reference->identifier(), c.identifier) << c.text;
        EXPECT_EQ(reference->isUsable(), c.isUsable) << c.text;
        EXPECT_EQ(icons::referenceOrDefault(system.platform(), c.text).text(), c.text) << "nothing of it is lost";
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

// ---- bitmaps and picture files

// 24 bits for a colour, without a file header.
Bytes bitmapOf(std::uint32_t width, std::uint32_t height) {
    icons::ByteWriter out;
    out.u32(40).u32(width).u32(height).u16(1).u16(24).fill(24);
    return out.fill((width * 3 + 3) / 4 * 4 * height, 0x77).bytes();
}
// `gap`: bytes between header and pixels.
Bytes bitmapFile(const Bytes& bitmap, std::uint32_t gap = 0) {
    icons::ByteWriter out;
    out.u8('B').u8('M').u32(0).u32(0).u32(14 + 40 + gap);
    out.add(bitmap.substr(0, 40)).fill(gap).add(bitmap.substr(40));
    return out.bytes();
}
TEST_F(ExtractIconTest, APictureComesFromAnIconABitmapOrAProgramFile) {
    const Bytes icon = icons::file(icons::usualImages(4));
    for (const char* name : {"a.ico", "a,4480.ico"}) writeFile(name, icon);
    for (const std::uint32_t gap : {0, 10}) writeFile(gap ? "gap.bmp" : "a.bmp", bitmapFile(bitmapOf(2, 2), gap));
    addIcon("b,1.cpl", std::uint16_t{3}, {16}, 7);
    writeFile("text.ico", Bytes{'t', 'e', 'x', 't'});
    const Bytes bytes = bitmapOf(2, 2);
    const ui::Picture bitmap{ui::Picture::Kind::Bitmap, {bytes.data(), bytes.size()}, 2, 2};
    const std::pair<std::string, ui::Picture> cases[] = {
        {system.path("a.ico"), picture(16, 4)},
        {system.path("a,4480.ico"), picture(16, 4)},
        {system.path("b,1.cpl,3"), picture(16, 7)},
        {system.path("a.bmp"), bitmap},
        {system.path("gap.bmp"), bitmap},
        {system.path("zones.cpl,4480"), picture(16, LibrarySeed)},
        {"zones.cpl,4481", {}},
        {"zones.cpl,", {}},
        {system.path("text.ico"), {}},
        {"", {}},
    };
    for (const auto& [reference, expected] : cases)
        EXPECT_EQ(basMain::LoadPicture(program.platform, reference), expected) << reference;
    EXPECT_EQ(basMain::LoadPicture(program.platform, system.path("a.ico"), 48), picture(48, 4));
}

TEST_F(ExtractIconTest, ACutOffOrLyingBitmapFileGivesNoPicture) {
    const Bytes whole = bitmapFile(bitmapOf(2, 2));
    const auto load = [&](const Bytes& bytes) {
        writeFile("a.bmp", bytes);
        return basMain::LoadPicture(program.platform, system.path("a.bmp"));
    };
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_TRUE(load(whole.substr(0, length)).empty()) << length;
    // Where the pixels are, size of the header, width, height, bits a colour, packing.
    const std::pair<std::size_t, std::uint32_t> lies[] = {
        {10, 0xFFFFFFFF}, {14, 0xFFFFFFFF}, {14, 12},        {18, 0}, {18, 0xFFFFFFFE},
        {22, 0},          {22, 0x80000000}, {26, 17u << 16}, {30, 1},
    };
    for (const auto& [at, claim] : lies) {
        icons::ByteWriter number;
        number.u32(claim);
        EXPECT_TRUE(load(Bytes(whole).replace(at, 4, number.bytes())).empty()) << at << ": " << claim;
    }
    EXPECT_FALSE(load(whole).empty());
    // With all its pixels there, and a colour table.
    constexpr std::uint32_t Longest = 0x3FFF;
    EXPECT_FALSE(load(bitmapFile(bitmapOf(Longest, 1))).empty());
    EXPECT_TRUE(load(bitmapFile(bitmapOf(Longest + 1, 1))).empty());
    EXPECT_TRUE(load(bitmapFile(bitmapOf(1, Longest + 1))).empty());
    EXPECT_TRUE(load(bitmapFile(bitmapOf(2, 2).replace(32, 2, Bytes{1, 1}), 4 * 257)).empty()) << "257 colours";
}

}  // namespace
