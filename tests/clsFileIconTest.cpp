#include "icons/clsFileIcon.h"

#include <gtest/gtest.h>

#include "errors/basErrors.h"
#include "icons/ModuleFile.h"
#include "support/IconFixture.h"

namespace {

using basErrors::Error;
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
        } catch (const Error& error) {
            EXPECT_EQ(error.source(), "Tavimor.clsFileIcon");
            return error.what();
        }
    }
    std::string loadGroup(const ResourceId& id = std::uint16_t{1}) {
        return failure([&] { icon.LoadIconFromEXE(system.path(Library), id); });
    }
    std::string loadFile(const Bytes& bytes) {
        writeFile(File, bytes);
        return failure([&] { icon.LoadIcon(system.path(File)); });
    }
    // A program file with a group and images that need not belong to one another.
    void putGroup(const Bytes& group, const std::vector<Image>& images) {
        changeProgram(Library, [&](simulated::ProgramFile& program) {
            program = {};
            std::uint16_t id = FirstImage;
            for (const Image& stored : images) program.add(platform::RtIcon, id++, stored.bytes);
            program.add(platform::RtGroupIcon, std::uint16_t{1}, group);
        });
    }
    Bytes written() {
        const std::string bytes = system.readFile(File).value_or("");
        return Bytes(bytes.begin(), bytes.end());
    }
};

TEST_F(clsFileIconTest, AGroupIsLoadedWithItsImagesAsStored) {
    const std::vector<Image> images{image(16, 4), image(32, 8), image(256, 24)};
    putGroup(icons::group(images, FirstImage), images);
    ASSERT_EQ(loadGroup(), "");
    ASSERT_EQ(icon.ImageCount(), 3);
    for (int i = 0; i < 3; ++i) {
        const Bytes& stored = images[static_cast<std::size_t>(i)].bytes;
        EXPECT_EQ(icon.ImageSize(i), stored.size());
        EXPECT_TRUE(std::equal(stored.begin(), stored.end(), icon.ImageBytes(i).begin(), icon.ImageBytes(i).end()));
    }
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

TEST_F(clsFileIconTest, AGroupIsFoundByNumberOrName) {
    addIcon(Library, std::uint16_t{4480}, {32});
    addIcon(Library, "MAIN", {16, 48});
    EXPECT_EQ(loadGroup(std::uint16_t{4480}), "");
    EXPECT_EQ(loadGroup("MAIN"), "");
    EXPECT_EQ(loadGroup("OTHER"), "Can't find resource.");
    EXPECT_EQ(icon.ImageCount(), 0) << "a failed load keeps nothing of the icon before";
    const std::tuple<const char*, int, const char*> refusals[] = {
        {"LoadResource", 1, "Can't load resource."},
        {"LockResource", 1, "Can't lock resource."},
        {"FindResourceA", 2, "Failed to read bitmap bits from resource."},
        {"LoadResource", 2, "Failed to read bitmap bits from resource."},
        {"LockResource", 2, "Failed to read bitmap bits from resource."},
    };
    for (const auto& [function, call, message] : refusals) {
        system.modules.watch.failOn(function, call, platform::OutOfMemory);
        EXPECT_EQ(loadGroup("MAIN"), message) << function;
    }
}

TEST_F(clsFileIconTest, WhatIsWrongWithAGroupIsSaid) {
    EXPECT_EQ(loadGroup(), "Can't load library.");

    const std::vector<Image> images{image(16, 4), image(32, 8)};
    Bytes otherSize = icons::group(images, FirstImage);
    otherSize[6 + 14 + 12] = FirstImage;  // the second entry names the first image, with another size
    Bytes claimsTooMuch = icons::group(images, FirstImage);
    claimsTooMuch[6 + 11] = 0xFF;  // the highest byte of the first image's size
    const std::tuple<const char*, Bytes, std::vector<Image>> cases[] = {
        {"", icons::group(images, FirstImage), images},
        {"Failed to read bitmap bits from resource.", icons::group(images, FirstImage), {images[0]}},
        {"Failed to read bitmap bits from resource.", claimsTooMuch, images},
        {"Failed to read bitmap bits from resource.", otherSize, images},
        {"Icon contains no images.", {0, 0, 1, 0, 0, 0}, images},
        {"Icon contains no images.", {0, 0, 1, 0, 0xFF, 0xFF}, images},
        {"Icon Directory Array is Corrupt.", {0, 0, 1, 0, 0xFF, 0x7F}, images},
    };
    for (const auto& [message, group, stored] : cases) {
        putGroup(group, stored);
        EXPECT_EQ(loadGroup(), message);
        EXPECT_EQ(icon.ImageCount(), *message ? 0 : 2);
    }
}

TEST_F(clsFileIconTest, EveryCutOffGroupAndFileIsRefused) {
    const std::vector<Image> images{image(4, 1), image(8, 1)};
    const Bytes group = icons::group(images, FirstImage), file = icons::file(images);
    for (std::size_t length = 1; length < group.size(); ++length) {
        putGroup(group.substr(0, length), images);
        EXPECT_NE(loadGroup(), "") << length;
    }
    for (std::size_t length = 0; length < file.size(); ++length) {
        EXPECT_NE(loadFile(file.substr(0, length)), "") << length;
        EXPECT_EQ(icon.ImageCount(), 0) << length;
    }
    EXPECT_EQ(loadFile(file + Bytes{1}), "") << "more than enough is enough";
}

TEST_F(clsFileIconTest, EntriesOfOneImageShareItsBytes) {
    const Image stored = image(48, 24);
    const Bytes entry = icons::group({stored}, FirstImage).substr(6);
    icons::ByteWriter group;
    group.u16(0).u16(1).u16(1000);
    for (int i = 0; i < 1000; ++i) group.add(entry);
    putGroup(group.bytes(), {stored});
    ASSERT_EQ(loadGroup(), "");
    EXPECT_EQ(icon.ImageBytes(0).data(), icon.ImageBytes(999).data());
}

// ---- icon files

TEST_F(clsFileIconTest, AFileIsWrittenByteForByteAndReadBack) {
    const Bytes first{1, 2, 3}, second{4, 5};
    icon.AddImage({16, 32, 2, 9, 1, 4, 0}, {first.data(), first.size()});
    icon.AddImage({0, 0, 0, 0, 1, 0x0118, 77}, {second.data(), second.size()});
    icon.SaveIcon(system.path(File));
    const Bytes expected{0,  0,  1, 0, 2, 0,                                    //
                         16, 32, 2, 9, 1, 0, 4,    0, 3, 0, 0, 0, 38, 0, 0, 0,  //
                         0,  0,  0, 0, 1, 0, 0x18, 1, 2, 0, 0, 0, 41, 0, 0, 0,  //
                         1,  2,  3, 4, 5};
    EXPECT_EQ(written(), expected);

    ASSERT_EQ(loadFile(expected), "");
    EXPECT_EQ(icon.ImageCount(), 2);
    icon.RemoveImage(0);
    icon.SaveIcon(system.path(File));
    const Bytes rest{0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0x18, 1, 2, 0, 0, 0, 22, 0, 0, 0, 4, 5};
    EXPECT_EQ(written(), rest);
}

TEST_F(clsFileIconTest, WhatIsWrongWithAFileIsSaid) {
    const Bytes entry{16, 16, 0, 0, 1, 0, 4, 0, 4, 0, 0, 0, 22, 0, 0, 0};
    const Bytes huge = Bytes(entry).replace(8, 4, Bytes(4, 0xFF));
    const std::pair<const char*, Bytes> cases[] = {
        {"File is not icon type (reserved member is 0)", Bytes{'M', 'Z', 1, 0, 1, 0} + entry},
        {"File is not icon type (idType <> IMAGE_ICON)", Bytes{0, 0, 2, 0, 1, 0} + entry},
        {"File is not icon type (idType <> IMAGE_ICON)", {}},
        {"Icon contains no images.", Bytes{0, 0, 1, 0, 0, 0} + entry},
        {"Icon contains no images.", Bytes{0, 0, 1, 0, 0, 0x80} + entry},
        {"Icon Directory Array is Corrupt.", Bytes{0, 0, 1, 0, 0xFF, 0x7F} + entry},
        {"Icon Images Array is Corrupt.", Bytes{0, 0, 1, 0, 1, 0} + entry + Bytes{1, 2, 3}},
        {"Icon Images Array is Corrupt.", Bytes{0, 0, 1, 0, 1, 0} + huge + Bytes{1, 2, 3, 4}},
        {"Icon Images Array is Corrupt.", Bytes{0, 0, 1, 0, 2, 0} + huge + huge},
    };
    for (const auto& [message, bytes] : cases)
        EXPECT_EQ(loadFile(bytes), std::string("Failed to load icon: ") + message);
    EXPECT_EQ(failure([&] { icon.LoadIcon("C:\\none.ico"); }), "Failed to load icon: Couldn't open file for reading.");
}

// A disk that takes all but one byte and calls that a success.
struct ShortFiles : watched::Files {
    using watched::Files::Files;
    platform::Result append(const std::string& path, std::string_view bytes, std::uint32_t& arrived) override {
        return watched::Files::append(path, bytes.substr(1), arrived);
    }
};

TEST_F(clsFileIconTest, ARefusedSaveSaysWhy) {
    const platform::Platform& p = system.platform();
    ShortFiles files(p.files);
    platform::Platform other{p.registry, files, p.modules, p.memory, p.system, p.browser, p.launcher, p.desktop};
    clsFileIcon onShortDisk(other);
    const auto save = [&](clsFileIcon& saved, const std::string& name) {
        return failure([&] { saved.SaveIcon(name); });
    };
    EXPECT_EQ(save(icon, ""), "No filename specified.");
    EXPECT_EQ(save(icon, system.path(File)), "Icon contains no images.");
    const Bytes image{1, 2, 3};
    icon.AddImage({}, {image.data(), image.size()});
    EXPECT_EQ(save(icon, "C:\\no such folder\\new.ico"), "Couldn't open file for writing.");
    system.files.watch.failOn("append", 1, platform::DiskFull);
    EXPECT_EQ(save(icon, system.path(File)), "General failure writing icon.");
    icon.CloneTo(onShortDisk);
    EXPECT_EQ(save(onShortDisk, system.path(File)), "General failure writing icon.");
}

// ---- images

TEST_F(clsFileIconTest, ImagesAreEqualByWidthHeightAndColours) {
    const Bytes one{1}, other{2, 3};
    const auto add = [&](clsFileIcon::Entry entry, const Bytes& bytes) {
        return failure([&] { icon.AddImage(entry, {bytes.data(), bytes.size()}); });
    };
    EXPECT_EQ(add({16, 16, 0, 0, 1, 4, 0}, one), "");
    EXPECT_EQ(add({16, 16, 9, 9, 9, 4, 0}, other), "Icon already exists.");
    EXPECT_EQ(add({16, 16, 0, 0, 1, 8, 0}, one), "");
    EXPECT_EQ(add({16, 32, 0, 0, 1, 4, 0}, one), "");
    EXPECT_EQ(add({32, 16, 0, 0, 1, 4, 0}, one), "");
    EXPECT_EQ(icon.ImageCount(), 4);
    icon.RemoveImage(0);
    EXPECT_EQ(add({16, 16, 0, 0, 1, 4, 0}, one), "");
    for (const int image : {-1, 4}) {
        EXPECT_EQ(failure([&] { icon.RemoveImage(image); }), "Icon has no such image.");
        EXPECT_EQ(failure([&] { icon.ImageSize(image); }), "Icon has no such image.");
    }
}

TEST_F(clsFileIconTest, TheImageThatServesASizeBestIsFound) {
    struct Case {
        std::vector<std::pair<int, int>> images;  // width as stored, bits
        int wanted, best;
    };
    const Case cases[] = {
        {{{16, 8}, {32, 4}, {32, 8}, {48, 32}}, 32, 2},   // that width, most colours
        {{{16, 8}, {64, 32}, {48, 4}, {48, 8}}, 32, 3},   // the smallest larger one
        {{{16, 32}, {24, 4}, {24, 8}, {20, 32}}, 32, 2},  // the largest
        {{{0, 32}, {16, 4}}, 32, 0},                      // 0 is 256
        {{{16, 4}, {0, 32}}, 256, 1},
        {{{32, 8}, {32, 8}}, 32, 0},
    };
    for (const Case& c : cases) {
        std::vector<Image> images;
        for (const auto& [width, bits] : c.images) images.push_back(image(width, bits));
        ASSERT_EQ(loadFile(icons::file(images)), "");
        EXPECT_EQ(icon.ImageForWidth(c.wanted), c.best) << &c - cases;
    }
    std::vector<Image> old{image(32, 4), image(32, 8)};
    for (Image& stored : old) stored.bits = 0;
    ASSERT_EQ(loadFile(icons::file(old)), "");
    EXPECT_EQ(icon.ImageForWidth(32), 1) << "an entry without bit count has it in its image";
    icon.RemoveImage(0);
    icon.RemoveImage(0);
    EXPECT_EQ(failure([&] { icon.ImageForWidth(32); }), "Icon contains no images.");
}

}  // namespace
