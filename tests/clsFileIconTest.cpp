#include "icons/clsFileIcon.h"

#include <gtest/gtest.h>

#include "support/IconFixture.h"
#include "util/Error.h"

namespace {

using icons::Image;
using icons::image;
using platform::Bytes;
using platform::ResourceId;

constexpr const char* Library = "icons.dll";
constexpr const char* File = "new.ico";
constexpr std::uint8_t FirstImage = 11;
constexpr const char *NoBits = "Failed to read bitmap bits from resource.", *NoImages = "Icon contains no images.",
                     *BadDirectory = "Icon Directory Array is Corrupt.", *BadImages = "Icon Images Array is Corrupt.";

struct clsFileIconTest : IconFixture {
    clsFileIcon icon{system.platform()};

    // What the operation says when it fails; "" when it does not.
    template <class Operation>
    std::string failure(Operation operation) {
        try {
            operation();
            return "";
        } catch (const util::Error& error) {
            EXPECT_EQ(error.source(), "Tavimor.clsFileIcon");
            return error.what();
        }
    }
    // A program file with a group and images that need not belong to one another.
    std::string loadGroup(const Bytes& group, const std::vector<Image>& images) {
        changeProgram(Library, [&](simulated::ProgramFile& program) {
            program = {};
            program.add(platform::RtGroupIcon, std::uint16_t{1}, group);
            for (std::uint16_t id = FirstImage; const Image& stored : images)
                program.add(platform::RtIcon, id++, stored.bytes);
        });
        return failure([&] { icon.LoadIconFromEXE(system.path(Library), std::uint16_t{1}); });
    }
    std::string loadFile(const Bytes& bytes) {
        writeFile(File, bytes);
        return failure([&] { icon.LoadIcon(system.path(File)); });
    }
    std::string add(const clsFileIcon::Entry& entry, const Bytes& bytes) {
        return failure([&] { icon.AddImage(entry, bytes); });
    }
    void expectSaved(const Bytes& expected) {
        EXPECT_EQ(failure([&] { icon.SaveIcon(system.path(File)); }), "");
        EXPECT_EQ(system.readFile(File), std::string(expected.begin(), expected.end()));
    }
};

TEST_F(clsFileIconTest, AGroupIsLoadedWithItsImagesAsStored) {
    const std::vector<Image> images{image(16, 4), image(32, 8), image(256, 24)};
    ASSERT_EQ(loadGroup(icons::group(images, FirstImage), images), "");
    ASSERT_EQ(icon.ImageCount(), 3);
    for (int i = 0; const Image& stored : images) {
        EXPECT_TRUE(std::ranges::equal(icon.ImageBytes(i), stored.bytes)) << i;
        EXPECT_EQ(icon.ImageSize(i++), stored.bytes.size());
    }
    EXPECT_EQ(icon.ImageWidth(2), 256);
    EXPECT_EQ(icon.ImageHeight(1), 32);
    EXPECT_EQ(icon.ImageColourCount(2), 16777216);
    clsFileIcon clone(system.platform());
    icon.CloneTo(clone);
    EXPECT_EQ(clone.FileName(), system.path(Library));
    EXPECT_EQ(clone.ResourceID(), ResourceId(std::uint16_t{1}));
    EXPECT_EQ(clone.ImageCount(), 3);
}

IN_MEMORY_TEST_F(clsFileIconTest, AGroupThatIsRefusedSaysWhyAndKeepsNothingOfTheIconBefore) {
    const auto load = [&](const ResourceId& id) {
        return failure([&] { icon.LoadIconFromEXE(system.path(Library), id); });
    };
    EXPECT_EQ(load("MAIN"), "Can't load library.");
    addIcon(Library, "MAIN", {16, 48});
    EXPECT_EQ(load("MAIN"), "");
    EXPECT_EQ(load("OTHER"), "Can't find resource.");
    EXPECT_EQ(icon.ImageCount(), 0);
    const std::tuple<const char*, int, const char*> refusals[] = {
        {"LoadResource", 1, "Can't load resource."},
        {"LockResource", 1, "Can't lock resource."},
        {"FindResourceA", 2, NoBits},
        {"LockResource", 2, NoBits},
    };
    for (const auto& [function, call, message] : refusals) {
        system.modules.watch.failOn(function, call, platform::OutOfMemory);
        EXPECT_EQ(load("MAIN"), message) << function;
    }
}

TEST_F(clsFileIconTest, WhatIsWrongWithAGroupOrFileIsSaid) {
    const std::vector<Image> images{image(4, 1), image(8, 1)};
    const Bytes group = icons::group(images, FirstImage), file = icons::file(images);
    const std::tuple<const char*, Bytes, std::vector<Image>> groups[] = {
        {"", group, images},
        {NoBits, group, {images[0]}},
        {NoBits, icons::patched(group, 6 + 11, {0xFF}), images},  // the highest byte of the first image's size
        {NoBits, icons::patched(group, 6 + 8, {81}), images},     // its lowest: an image that is one byte short
        {NoBits, icons::patched(group, 6 + 14 + 12, {FirstImage}), images},  // the first image, with another size
        {NoImages, {0, 0, 1, 0, 0, 0}, images},
        {NoImages, {0, 0, 1, 0, 0xFF, 0xFF}, images},
        {BadDirectory, {0, 0, 1, 0, 0xFF, 0x7F}, images},
    };
    for (const auto& [message, bytes, stored] : groups)
        EXPECT_EQ(loadGroup(bytes, stored), message) << testing::PrintToString(bytes);
    // Entries of one image share its bytes.
    EXPECT_EQ(loadGroup(icons::patched(icons::group({images[0], images[0]}, 10), 6 + 12, {FirstImage}), images), "");
    EXPECT_EQ(icon.ImageBytes(0).data(), icon.ImageBytes(1).data());

    const Bytes hugeSize(4, 0xFF);
    const std::pair<std::string, Bytes> files[] = {
        {"File is not icon type (reserved member is 0)", icons::patched(file, 0, {'M', 'Z'})},
        {"File is not icon type (idType <> IMAGE_ICON)", icons::patched(file, 2, {2})},
        {NoImages, icons::patched(file, 4, {0, 0x80})},
        {BadDirectory, icons::patched(file, 4, {0xFF, 0x7F})},
        {BadImages, icons::patched(file, 6 + 8, hugeSize)},
        {BadImages, icons::patched(icons::patched(file, 6 + 8, hugeSize), 6 + 16 + 8, hugeSize)},
    };
    for (const auto& [message, bytes] : files) EXPECT_EQ(loadFile(bytes), "Failed to load icon: " + message);
    EXPECT_EQ(loadFile(file), "");
    EXPECT_EQ(failure([&] { icon.LoadIcon("C:\\none.ico"); }), "Failed to load icon: Couldn't open file for reading.");

    EXPECT_EQ(icon.FileName(), "C:\\none.ico") << "not of the icon before";
    for (std::size_t length = 1; length < group.size(); ++length)
        EXPECT_NE(loadGroup(group.substr(0, length), images), "") << length;
    for (std::size_t length = 0; length < file.size(); ++length) EXPECT_NE(loadFile(file.substr(0, length)), "");
    EXPECT_EQ(icon.ImageCount(), 0);
    EXPECT_EQ(loadFile(file + Bytes{1}), "") << "more than enough is enough";
}

// ---- icon files and images

TEST_F(clsFileIconTest, AFileIsWrittenByteForByteAndReadBack) {
    EXPECT_EQ(add({16, 32, 2, 9, 1, 4, 0}, {1, 2, 3}), "");
    EXPECT_EQ(add({0, 0, 0, 0, 1, 0x0118, 77}, {4, 5}), "");
    const Bytes expected{0,  0,  1, 0, 2, 0,                                    //
                         16, 32, 2, 9, 1, 0, 4,    0, 3, 0, 0, 0, 38, 0, 0, 0,  //
                         0,  0,  0, 0, 1, 0, 0x18, 1, 2, 0, 0, 0, 41, 0, 0, 0,  //
                         1,  2,  3, 4, 5};
    expectSaved(expected);
    ASSERT_EQ(loadFile(expected), "");
    icon.RemoveImage(0);
    expectSaved({0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0x18, 1, 2, 0, 0, 0, 22, 0, 0, 0, 4, 5});
}

IN_MEMORY_TEST_F(clsFileIconTest, ARefusedSaveSaysWhy) {
    const auto save = [&](const std::string& name) { return failure([&] { icon.SaveIcon(name); }); };
    EXPECT_EQ(save(""), "No filename specified.");
    EXPECT_EQ(save(system.path(File)), NoImages);
    EXPECT_EQ(add({}, {1, 2, 3}), "");
    EXPECT_EQ(save("C:\\no such folder\\new.ico"), "Couldn't open file for writing.");
    // A full disk, and one that takes nothing and calls that a success.
    for (const platform::Result code : {platform::DiskFull, platform::Success}) {
        system.files.watch.failOn("append", 1, code);
        EXPECT_EQ(save(system.path(File)), "General failure writing icon.");
    }
}

TEST_F(clsFileIconTest, ImagesAreEqualByWidthHeightAndColours) {
    EXPECT_EQ(add({16, 16, 0, 0, 1, 4, 0}, {1}), "");
    EXPECT_EQ(add({16, 16, 9, 9, 9, 4, 0}, {2, 3}), "Icon already exists.");
    EXPECT_EQ(add({16, 16, 0, 0, 1, 8, 0}, {1}), "");
    EXPECT_EQ(add({16, 32, 0, 0, 1, 4, 0}, {1}), "");
    EXPECT_EQ(add({32, 16, 0, 0, 1, 4, 0}, {1}), "");
    for (const int none : {-1, 4}) EXPECT_EQ(failure([&] { icon.RemoveImage(none); }), "Icon has no such image.");
}

TEST_F(clsFileIconTest, TheImageThatServesASizeBestAndCanBeDrawnIsFound) {
    const struct {
        std::vector<std::pair<int, int>> images;  // width, bits
        int best;                                 // for 32 pixels
        std::vector<std::size_t> damaged = {};
    } cases[] = {
        {{{16, 8}, {32, 4}, {32, 8}, {48, 32}}, 2},   // that width, most colours
        {{{16, 8}, {64, 32}, {48, 4}, {48, 8}}, 3},   // the smallest larger one
        {{{16, 32}, {24, 4}, {24, 8}, {20, 32}}, 2},  // the largest
        {{{256, 32}, {16, 4}}, 0},                    // stored as 0
        {{{32, 8}, {32, 8}}, 0},
        {{{16, 8}, {32, 4}, {48, 8}, {32, 8}}, 1, {3}},
        {{{16, 8}, {32, 4}, {48, 8}, {32, 8}}, 2, {3, 1}},
        {{{16, 8}, {32, 4}, {48, 8}, {32, 8}}, 0, {3, 1, 2}},
    };
    for (const auto& c : cases)
        for (const bool old : {false, true}) {
            std::vector<Image> images;
            for (const auto& [width, bits] : c.images) images.push_back(image(width, bits));
            // An entry without bit count has it in its image.
            if (old) std::ranges::for_each(images, [](Image& stored) { stored.bits = 0; });
            for (const std::size_t damaged : c.damaged) images[damaged].bytes[0] = 12;
            ASSERT_EQ(loadFile(icons::file(images)), "");
            EXPECT_EQ(icon.ImageForWidth(32), c.best) << &c - cases;
        }
    icon.RemoveImage(0);
    for (const auto& draw : {std::function([&] { icon.ImageForWidth(32); }), {[&] { icon.DrawIconImage(0, box); }}})
        EXPECT_EQ(failure(draw), "Icon image is damaged.");
    for (int left = 3; left-- > 0;) icon.RemoveImage(0);
    EXPECT_EQ(failure([&] { icon.ImageForWidth(32); }), NoImages);
}

}  // namespace
