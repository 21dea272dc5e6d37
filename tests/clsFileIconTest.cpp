#include "icons/clsFileIcon.h"

#include <gtest/gtest.h>

#include "icons/ModuleFile.h"
#include "support/IconFixture.h"
#include "util/Error.h"

namespace {

using icons::Image;
using icons::image;
using platform::Bytes;
using platform::ResourceId;

constexpr const char* Library = "icons.dll";
constexpr const char* File = "new.ico";
constexpr std::uint16_t FirstImage = 11;

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
    std::string loadGroup(const ResourceId& id = std::uint16_t{1}) {
        return failure([&] { icon.LoadIconFromEXE(system.path(Library), id); });
    }
    // A program file with a group and images that need not belong to one another.
    std::string loadGroup(const Bytes& group, const std::vector<Image>& images) {
        changeProgram(Library, [&](simulated::ProgramFile& program) {
            program = {};
            std::uint16_t id = FirstImage;
            for (const Image& stored : images) program.add(platform::RtIcon, id++, stored.bytes);
            program.add(platform::RtGroupIcon, std::uint16_t{1}, group);
        });
        return loadGroup();
    }
    std::string loadFile(const Bytes& bytes) {
        writeFile(File, bytes);
        return failure([&] { icon.LoadIcon(system.path(File)); });
    }
    std::string add(const clsFileIcon::Entry& entry, const Bytes& bytes) {
        return failure([&] { icon.AddImage(entry, {bytes.data(), bytes.size()}); });
    }
    Bytes saved() {
        EXPECT_EQ(failure([&] { icon.SaveIcon(system.path(File)); }), "");
        const std::string bytes = system.readFile(File).value_or("");
        return Bytes(bytes.begin(), bytes.end());
    }
};

TEST_F(clsFileIconTest, AGroupIsLoadedWithItsImagesAsStored) {
    const std::vector<Image> images{image(16, 4), image(32, 8), image(256, 24)};
    ASSERT_EQ(loadGroup(icons::group(images, FirstImage), images), "");
    ASSERT_EQ(icon.ImageCount(), 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Bytes(icon.ImageBytes(i).data(), icon.ImageSize(i)), images[static_cast<std::size_t>(i)].bytes);
    EXPECT_EQ(icon.ImageWidth(2), 256);
    EXPECT_EQ(icon.ImageHeight(1), 32);
    EXPECT_EQ(icon.ImageColourCount(2), 16777216);
}

TEST(IconIdentifier, IsANumberWhenItIsDecimalTextAndAResourceCanHaveIt) {
    for (const auto& [text, number] : {std::pair{"0018", 18}, {"0", 0}, {"65535", 65535}})
        EXPECT_EQ(icons::toIdentifier(text), ResourceId(static_cast<std::uint16_t>(number)));
    for (const char* text : {"65536", "", "MAIN", "18a", "-1", " 1", "99999999999999999999"})
        EXPECT_EQ(icons::toIdentifier(text), ResourceId(text));
}

IN_MEMORY_TEST_F(clsFileIconTest, AGroupThatIsRefusedSaysWhyAndKeepsNothingOfTheIconBefore) {
    EXPECT_EQ(loadGroup(), "Can't load library.");
    addIcon(Library, "MAIN", {16, 48});
    EXPECT_EQ(loadGroup("MAIN"), "");
    EXPECT_EQ(loadGroup("OTHER"), "Can't find resource.");
    EXPECT_EQ(icon.ImageCount(), 0);
    const std::tuple<const char*, int, const char*> refusals[] = {
        {"LoadResource", 1, "Can't load resource."},
        {"LockResource", 1, "Can't lock resource."},
        {"FindResourceA", 2, "Failed to read bitmap bits from resource."},
        {"LockResource", 2, "Failed to read bitmap bits from resource."},
    };
    for (const auto& [function, call, message] : refusals) {
        system.modules.watch.failOn(function, call, platform::OutOfMemory);
        EXPECT_EQ(loadGroup("MAIN"), message) << function;
    }
}

TEST_F(clsFileIconTest, WhatIsWrongWithAGroupIsSaid) {
    const std::vector<Image> images{image(16, 4), image(32, 8)};
    const auto damaged = [&](std::size_t at, int more) {
        Bytes group = icons::group(images, FirstImage);
        group[at] = static_cast<std::uint8_t>(group[at] + more);
        return group;
    };
    constexpr const char *NoBits = "Failed to read bitmap bits from resource.", *NoImages = "Icon contains no images.";
    const std::tuple<const char*, Bytes, std::vector<Image>> cases[] = {
        {"", damaged(0, 0), images},
        {NoBits, damaged(0, 0), {images[0]}},
        {NoBits, damaged(6 + 11, 0xFF), images},     // the highest byte of the first image's size
        {NoBits, damaged(6 + 8, 1), images},         // its lowest: an image that is one byte short
        {NoBits, damaged(6 + 14 + 12, -1), images},  // the second entry names the first image, with another size
        {NoImages, {0, 0, 1, 0, 0, 0}, images},
        {NoImages, {0, 0, 1, 0, 0xFF, 0xFF}, images},
        {"Icon Directory Array is Corrupt.", {0, 0, 1, 0, 0xFF, 0x7F}, images},
    };
    for (const auto& [message, group, stored] : cases)
        EXPECT_EQ(loadGroup(group, stored), message) << testing::PrintToString(group);
    // Entries of one image share its bytes.
    const Bytes twice = icons::group({images[0], images[0]}, FirstImage).replace(6 + 14 + 12, 1, 1, FirstImage);
    EXPECT_EQ(loadGroup(twice, {images[0]}), "");
    EXPECT_EQ(icon.ImageBytes(0).data(), icon.ImageBytes(1).data());
}

TEST_F(clsFileIconTest, EveryCutOffGroupAndFileIsRefused) {
    const std::vector<Image> images{image(4, 1), image(8, 1)};
    const Bytes group = icons::group(images, FirstImage), file = icons::file(images);
    for (std::size_t length = 1; length < group.size(); ++length)
        EXPECT_NE(loadGroup(group.substr(0, length), images), "") << length;
    for (std::size_t length = 0; length < file.size(); ++length) {
        EXPECT_NE(loadFile(file.substr(0, length)), "") << length;
        EXPECT_EQ(icon.ImageCount(), 0) << length;
    }
    EXPECT_EQ(loadFile(file + Bytes{1}), "") << "more than enough is enough";
}

// ---- icon files

TEST_F(clsFileIconTest, AFileIsWrittenByteForByteAndReadBack) {
    EXPECT_EQ(add({16, 32, 2, 9, 1, 4, 0}, {1, 2, 3}), "");
    EXPECT_EQ(add({0, 0, 0, 0, 1, 0x0118, 77}, {4, 5}), "");
    const Bytes expected{0,  0,  1, 0, 2, 0,                                    //
                         16, 32, 2, 9, 1, 0, 4,    0, 3, 0, 0, 0, 38, 0, 0, 0,  //
                         0,  0,  0, 0, 1, 0, 0x18, 1, 2, 0, 0, 0, 41, 0, 0, 0,  //
                         1,  2,  3, 4, 5};
    EXPECT_EQ(saved(), expected);
    ASSERT_EQ(loadFile(expected), "");
    icon.RemoveImage(0);
    EXPECT_EQ(saved(), (Bytes{0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0x18, 1, 2, 0, 0, 0, 22, 0, 0, 0, 4, 5}));
}

TEST_F(clsFileIconTest, WhatIsWrongWithAFileIsSaid) {
    const Bytes entry{16, 16, 0, 0, 1, 0, 4, 0, 4, 0, 0, 0, 22, 0, 0, 0};
    const Bytes huge = Bytes(entry).replace(8, 4, Bytes(4, 0xFF));
    const std::pair<const char*, Bytes> cases[] = {
        {"File is not icon type (reserved member is 0)", Bytes{'M', 'Z', 1, 0, 1, 0} + entry},
        {"File is not icon type (idType <> IMAGE_ICON)", Bytes{0, 0, 2, 0, 1, 0} + entry},
        {"Icon contains no images.", Bytes{0, 0, 1, 0, 0, 0x80} + entry},
        {"Icon Directory Array is Corrupt.", Bytes{0, 0, 1, 0, 0xFF, 0x7F} + entry},
        {"Icon Images Array is Corrupt.", Bytes{0, 0, 1, 0, 1, 0} + huge + Bytes{1, 2, 3, 4}},
        {"Icon Images Array is Corrupt.", Bytes{0, 0, 1, 0, 2, 0} + huge + huge},
    };
    for (const auto& [message, bytes] : cases)
        EXPECT_EQ(loadFile(bytes), std::string("Failed to load icon: ") + message);
    EXPECT_EQ(failure([&] { icon.LoadIcon("C:\\none.ico"); }), "Failed to load icon: Couldn't open file for reading.");
}

IN_MEMORY_TEST_F(clsFileIconTest, ARefusedSaveSaysWhy) {
    const auto save = [&](const std::string& name) { return failure([&] { icon.SaveIcon(name); }); };
    EXPECT_EQ(save(""), "No filename specified.");
    EXPECT_EQ(save(system.path(File)), "Icon contains no images.");
    EXPECT_EQ(add({}, {1, 2, 3}), "");
    EXPECT_EQ(save("C:\\no such folder\\new.ico"), "Couldn't open file for writing.");
    system.files.watch.failOn("append", 1, platform::DiskFull);
    EXPECT_EQ(save(system.path(File)), "General failure writing icon.");
    // A disk that takes nothing and calls that a success.
    system.files.watch.failOn("append", 1, platform::Success);
    EXPECT_EQ(save(system.path(File)), "General failure writing icon.");
}

// ---- images

TEST_F(clsFileIconTest, ImagesAreEqualByWidthHeightAndColours) {
    EXPECT_EQ(add({16, 16, 0, 0, 1, 4, 0}, {1}), "");
    EXPECT_EQ(add({16, 16, 9, 9, 9, 4, 0}, {2, 3}), "Icon already exists.");
    EXPECT_EQ(add({16, 16, 0, 0, 1, 8, 0}, {1}), "");
    EXPECT_EQ(add({16, 32, 0, 0, 1, 4, 0}, {1}), "");
    EXPECT_EQ(add({32, 16, 0, 0, 1, 4, 0}, {1}), "");
    for (const int none : {-1, 4}) EXPECT_EQ(failure([&] { icon.RemoveImage(none); }), "Icon has no such image.");
}

TEST_F(clsFileIconTest, TheImageThatServesASizeBestIsFound) {
    const struct {
        std::vector<std::pair<int, int>> images;  // width, bits
        int wanted, best;
    } cases[] = {
        {{{16, 8}, {32, 4}, {32, 8}, {48, 32}}, 32, 2},   // that width, most colours
        {{{16, 8}, {64, 32}, {48, 4}, {48, 8}}, 32, 3},   // the smallest larger one
        {{{16, 32}, {24, 4}, {24, 8}, {20, 32}}, 32, 2},  // the largest
        {{{256, 32}, {16, 4}}, 32, 0},                    // stored as 0
        {{{32, 8}, {32, 8}}, 32, 0},
    };
    for (const auto& c : cases)
        for (const bool old : {false, true}) {
            std::vector<Image> images;
            for (const auto& [width, bits] : c.images) images.push_back(image(width, bits));
            // An entry without bit count has it in its image.
            if (old) std::ranges::for_each(images, [](Image& stored) { stored.bits = 0; });
            ASSERT_EQ(loadFile(icons::file(images)), "");
            EXPECT_EQ(icon.ImageForWidth(c.wanted), c.best) << &c - cases;
        }
    clsFileIcon empty(system.platform());
    EXPECT_EQ(failure([&] { empty.ImageForWidth(32); }), "Icon contains no images.");
}

TEST_F(clsFileIconTest, ADamagedImageCostsTheNextBestItsTurnAndNotTheIcon) {
    std::vector<Image> images{image(16, 8), image(32, 4), image(48, 8), image(32, 8)};
    for (const auto& [damaged, best] : {std::pair{3, 1}, {1, 2}, {2, 0}}) {
        images[static_cast<std::size_t>(damaged)].bytes[0] = 12;
        ASSERT_EQ(loadFile(icons::file(images)), "");
        EXPECT_EQ(icon.ImageForWidth(32), best);
    }
    images[0].bytes[0] = 12;
    ASSERT_EQ(loadFile(icons::file(images)), "");
    EXPECT_EQ(failure([&] { icon.ImageForWidth(32); }), "Icon image is damaged.");
    EXPECT_EQ(failure([&] { icon.DrawIconImage(0, box); }), "Icon image is damaged.");
}

}  // namespace
