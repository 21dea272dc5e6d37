#include "icons/ExtractIcon.h"

#include <gtest/gtest.h>

#include "app/Program.h"
#include "errors/basErrors.h"
#include "support/IconFixture.h"

namespace {

using platform::Bytes;

constexpr const char* Own = "Tavimor.exe";
constexpr const char* Library = "zones.cpl";
constexpr std::uint8_t OwnSeed = 9, LibrarySeed = 5;

struct ExtractIconTest : IconFixture {
    Program program{system.platform()};
    const std::size_t running = basErrors::ProcStack.size();

    ExtractIconTest() {
        addIcon(Own, std::uint16_t{1}, {16, 32}, OwnSeed);
        addIcon(Library, std::uint16_t{4480}, {16, 32, 48}, LibrarySeed);
        addIcon(Library, "NAMED", {16}, LibrarySeed);
    }
    const ui::Picture& extract(const std::string& reference, int size = 32) {
        basMain::ExtractIcon(program, reference, "#", size, box);
        return box.picture();
    }
};

TEST_F(ExtractIconTest, AReferenceIsDrawn) {
    EXPECT_EQ(extract("zones.cpl#00004480"), picture(32, LibrarySeed));
    EXPECT_EQ(extract(system.path(Library) + "#4480", 16), picture(16, LibrarySeed));
    EXPECT_EQ(extract("zones.cpl#named"), picture(16, LibrarySeed)) << "the nearest size there is";
    EXPECT_EQ(basErrors::ProcStack.size(), running) << "an error was shown";
}

TEST_F(ExtractIconTest, WhatCannotBeDrawnShowsTheProgramsOwnIcon) {
    addDamagedIcon(Library, std::uint16_t{13});
    for (const char* reference : {"none.dll#1", "zones.cpl#1", "zones.cpl#13", "zones.cpl#", "zones.cpl", "#4480", "",
                                  "\"zones.cpl\"x#4480", "\"zones.cpl#4480"}) {
        box.clear();
        EXPECT_EQ(extract(reference), picture(32, OwnSeed)) << reference;
    }
    EXPECT_EQ(basErrors::ProcStack.size(), running) << "an error was shown";
    system.system.name = "Renamed";
    EXPECT_TRUE(extract("none.dll#1").empty()) << "not even that";

    TestSystem other(TestSystem::On::Simulation);
    other.system.folder = "C:\\C#";
    simulated::ProgramFile own;
    icons::addTo(own, std::uint16_t{1}, {icons::image(32, 4, 3)}, 1);
    other.addProgram("Tavimor.exe", own);
    basMain::IconCache cache(other.platform());
    EXPECT_EQ(cache.Icon(basMain::DefaultIconReference(other.platform()), "#", 32), picture(32, 3));
}

TEST_F(ExtractIconTest, AFillOpensTheFileOfAThousandEqualIconsOnce) {
    basMain::IconCache cache(system.platform());
    system.modules.watch.reset();
    for (int i = 0; i < 1000; ++i) {
        basMain::ExtractIcon(cache, "zones.cpl#4480", "#", 32, box);
        EXPECT_EQ(box.picture(), picture(32, LibrarySeed));
        basMain::ExtractIcon(cache, "none.dll#" + std::to_string(i % 3), "#", 32, box);
        EXPECT_EQ(box.picture(), picture(32, OwnSeed));
    }
    // one for zones.cpl, one for the file that is missing, one for the own icon in its place
    EXPECT_EQ(system.modules.watch.calls("LoadLibraryExA"), 3);
}

// ---- bitmaps and picture files

// 2 by 2 pixels, 24 bits for a colour, without a file header.
Bytes smallBitmap() {
    icons::ByteWriter out;
    out.u32(40).u32(2).u32(2).u16(1).u16(24).fill(24).fill(16, 0x77);
    return out.bytes();
}
// `gap`: bytes between header and pixels.
Bytes bitmapFile(const Bytes& bitmap, std::uint32_t gap) {
    icons::ByteWriter out;
    out.u8('B').u8('M').u32(0).u32(0).u32(14 + 40 + gap);
    out.add(bitmap.substr(0, 40)).fill(gap).add(bitmap.substr(40));
    return out.bytes();
}
ui::Picture bitmapPicture() {
    const Bytes bytes = smallBitmap();
    return {ui::Picture::Kind::Bitmap, {bytes.data(), bytes.size()}, 2, 2};
}

TEST_F(ExtractIconTest, APictureComesFromAnIconABitmapOrAProgramFile) {
    writeFile("a.ico", icons::file(icons::usualImages(4)));
    writeFile("a,4480.ico", icons::file(icons::usualImages(4)));
    addIcon("b,1.cpl", std::uint16_t{3}, {16}, 7);
    writeFile("a.bmp", bitmapFile(smallBitmap(), 0));
    writeFile("gap.bmp", bitmapFile(smallBitmap(), 10));
    writeFile("text.ico", Bytes{'t', 'e', 'x', 't'});
    const std::pair<std::string, ui::Picture> cases[] = {
        {system.path("a.ico"), picture(16, 4)},
        {system.path("a,4480.ico"), picture(16, 4)},
        {system.path("b,1.cpl,3"), picture(16, 7)},
        {system.path("a.bmp"), bitmapPicture()},
        {system.path("gap.bmp"), bitmapPicture()},
        {system.path("zones.cpl,4480"), picture(16, LibrarySeed)},
        {"zones.cpl,4481", {}},
        {"zones.cpl,", {}},
        {system.path("text.ico"), {}},
        {"C:\\none.bmp", {}},
        {"", {}},
    };
    for (const auto& [reference, expected] : cases)
        EXPECT_EQ(basMain::LoadPicture(program, reference), expected) << reference;
    EXPECT_EQ(basMain::LoadPicture(program, system.path("a.ico"), 48), picture(48, 4));
}

TEST_F(ExtractIconTest, ACutOffOrLyingBitmapFileGivesNoPicture) {
    const Bytes whole = bitmapFile(smallBitmap(), 0);
    const auto load = [&](const Bytes& bytes) {
        writeFile("a.bmp", bytes);
        return basMain::LoadPicture(program, system.path("a.bmp"));
    };
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_TRUE(load(whole.substr(0, length)).empty()) << length;
    // Where the pixels are, size of the header, width, height, bits a colour, packing, size of the colour table.
    const std::pair<std::size_t, std::vector<std::uint32_t>> lies[] = {
        {10, {0xFFFFFFFF}},
        {14, {0xFFFFFFFF, 12}},
        {18, {0, 0xFFFFFFFE, 0x7FFFFFFF}},
        {22, {0, 0x80000000, 20000}},
        {26, {17 << 16}},
        {30, {1}},
        {46, {256}},
    };
    for (const auto& [at, claims] : lies)
        for (const std::uint32_t claim : claims) {
            icons::ByteWriter number;
            number.u32(claim);
            EXPECT_TRUE(load(Bytes(whole).replace(at, 4, number.bytes())).empty()) << at << ": " << claim;
        }
    EXPECT_FALSE(load(whole).empty());
}

}  // namespace
