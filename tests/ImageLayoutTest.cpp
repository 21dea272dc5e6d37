#include "platform/ImageLayout.h"

#include <gtest/gtest.h>

#include "icons/Bitmaps.h"
#include "support/IconBytes.h"

namespace {

using platform::Bytes;

std::optional<platform::ImageLayout> layoutOf(const Bytes& image, bool systemDrawsPng = true) {
    return platform::iconLayout({image.data(), image.size()}, systemDrawsPng);
}

TEST(ImageLayout, SoundImagesOfIconsAreAcceptedAndDamagedOnesAreNot) {
    for (const auto& [what, bytes, isDrawn] : icons::storedImages()) {
        const auto layout = layoutOf(bytes);
        EXPECT_EQ(layout.has_value(), isDrawn) << what;
        if (!layout) continue;
        EXPECT_EQ(layout->width, 16) << what;
        EXPECT_EQ(layout->height, 16) << what;
        EXPECT_LE(layout->end, bytes.size()) << what;
    }
}

TEST(ImageLayout, SaysWhereThePartsOfAnImageAre) {
    const struct {
        int size, bits;
        std::size_t pixels, mask, end;
    } cases[] = {{16, 1, 48, 112, 176}, {17, 4, 104, 308, 376}, {32, 8, 1064, 2088, 2216}, {3, 24, 40, 76, 88}};
    for (const auto& c : cases) {
        const auto layout = layoutOf(icons::image(c.size, c.bits).bytes);
        ASSERT_TRUE(layout);
        EXPECT_EQ(layout->height, c.size);
        EXPECT_EQ(layout->bits, c.bits);
        EXPECT_EQ(layout->pixels, c.pixels) << c.size;
        EXPECT_EQ(layout->mask, c.mask) << c.size;
        EXPECT_EQ(layout->end, c.end) << c.size;
    }
}

TEST(ImageLayout, NoBeginningOfAnImageIsAnImage) {
    for (const Bytes& whole : {icons::image(16, 4).bytes, icons::image(8, 8).bytes, icons::png(16, 16)})
        for (std::size_t length = 0; length < whole.size(); ++length)
            ASSERT_FALSE(layoutOf(whole.substr(0, length))) << length;
}

TEST(ImageLayout, APngIsAnImageOnlyWhereTheSystemDrawsIt) {
    EXPECT_EQ(layoutOf(icons::png(256, 256))->width, 256);
    EXPECT_EQ(layoutOf(icons::png(256, 256))->bits, 32);
    EXPECT_FALSE(layoutOf(icons::png(256, 256), false));
    EXPECT_TRUE(layoutOf(icons::image(16, 4).bytes, false));
}

TEST(ImageLayout, ASmallImageIsEnlargedByAWholeFactorAndALargeOneShrunk) {
    const struct {
        int width, height, room, shownWidth, shownHeight;
    } cases[] = {{32, 32, 32, 32, 32}, {16, 16, 32, 32, 32}, {24, 24, 32, 24, 24}, {24, 24, 64, 48, 48},
                 {48, 48, 32, 32, 32}, {16, 8, 64, 64, 32},  {64, 16, 32, 32, 8},  {256, 1, 16, 16, 1}};
    for (const auto& c : cases) {
        const platform::ImageSize size = platform::sizeIn({c.width, c.height}, c.room);
        EXPECT_EQ(size.width, c.shownWidth) << c.width << " in " << c.room;
        EXPECT_EQ(size.height, c.shownHeight) << c.width << " in " << c.room;
    }
}

// Two pixels wide, two high, the lower row first: transparent and opaque, then opaque and half seen.
TEST(ImageLayout, AMissingMaskIsMadeFromThePixelsOwnTransparency) {
    icons::ByteWriter out;
    out.u32(40).u32(2).u32(4).u16(1).u16(32).fill(24);
    const Bytes header = out.bytes();
    const auto maskOf = [&](const Bytes& alphas) {
        Bytes image = header;
        for (const std::uint8_t alpha : alphas) image += {1, 2, 3, alpha};
        const platform::ByteSpan bytes(image.data(), image.size());
        const Bytes whole = platform::withMask(bytes, *layoutOf(image));
        EXPECT_EQ(whole.substr(0, image.size()), image);
        return whole.substr(image.size());
    };
    EXPECT_EQ(maskOf({0, 0xFF, 0x80, 0x7F}), (Bytes{0x80, 0, 0, 0, 0x40, 0, 0, 0}));
    EXPECT_EQ(maskOf({0, 0, 0, 0}), Bytes(8, 0)) << "stored before there was transparency";
    const Bytes masked = icons::image(16, 32).bytes;
    EXPECT_EQ(platform::withMask({masked.data(), masked.size()}, *layoutOf(masked)), masked);
}

TEST(ImageLayout, ABitmapMayHaveALongerHeaderAndItsTopRowFirst) {
    const auto bitmap = [](std::uint32_t headerSize, std::uint32_t height, std::uint32_t bits, std::uint32_t more) {
        icons::ByteWriter out;
        out.u32(headerSize).u32(3).u32(height).u16(1).u16(bits).u32(more).fill(20).fill(headerSize - 40);
        return out.fill(bits <= 8 ? 4u << bits : more ? 12 : 0).fill((3 * bits + 31) / 32 * 4 * 2).bytes();
    };
    const std::tuple<const char*, Bytes, std::size_t> cases[] = {
        {"1 bit", bitmap(40, 2, 1, 0), 48},
        {"24 bits", bitmap(40, 2, 24, 0), 40},
        {"top row first", bitmap(40, 0xFFFFFFFE, 24, 0), 40},
        {"fields", bitmap(40, 2, 16, 3), 52},
        {"a longer header", bitmap(124, 2, 32, 0), 124},
    };
    for (const auto& [what, bytes, pixels] : cases) {
        const auto layout = platform::bitmapLayout({bytes.data(), bytes.size()});
        ASSERT_TRUE(layout) << what;
        EXPECT_EQ(layout->pixels, pixels) << what;
        EXPECT_EQ(layout->height, 2) << what;
        EXPECT_FALSE(platform::bitmapLayout({bytes.data(), bytes.size() - 1})) << what;
    }
    for (const std::uint32_t height : {0u, 0x80000000u, 0x4000u})
        EXPECT_TRUE(icons::bitmapFromResource(platform::ByteSpan(bitmap(40, height, 24, 0))).empty()) << height;
}

TEST(ImageLayout, RunLengthsOfSixteenColoursAreUnpackedAndNothingIsReadOrWrittenBesideThem) {
    const auto packed = [](std::uint32_t width, std::uint32_t height, const Bytes& runs) {
        icons::ByteWriter out;
        out.u32(40).u32(width).u32(height).u16(1).u16(4).u32(2).fill(20);
        return out.fill(64).add(runs).bytes();
    };
    const Bytes end{0, 1};
    const std::pair<Bytes, Bytes> cases[] = {
        {{0, 5, 0x12, 0x34, 0x50, 0, 0, 0, 3, 0x67, 2, 0x89, 0, 1}, {0x12, 0x34, 0x50, 0, 0x67, 0x68, 0x90, 0}},
        {{255, 0x12, 0, 0, 255, 0x34, 0, 0, 255, 0x56, 0, 1}, {0x12, 0x12, 0x10, 0, 0x34, 0x34, 0x30, 0}},
        {{0, 0, 1, 0xF0, 0, 1}, {0, 0, 0, 0, 0xF0, 0, 0, 0}},
        {{0, 255, 0x12, 0, 1}, {}},
    };
    for (const auto& [runs, pixels] : cases) {
        const Bytes bytes = packed(5, 2, runs);
        const ui::Picture picture = icons::bitmapFromResource(bytes);
        const auto image = picture.image();
        ASSERT_EQ(image.size(), pixels.empty() ? 0u : 112u);
        EXPECT_EQ(Bytes(image.begin() + (pixels.empty() ? 0 : 104), image.end()), pixels);
        for (std::size_t length = 0; length < bytes.size(); ++length)
            EXPECT_TRUE(icons::bitmapFromResource(platform::ByteSpan(bytes.data(), length)).empty()) << length;
    }
    EXPECT_TRUE(icons::bitmapFromResource(packed(0x3FFF, 0x3FFF, end)).empty()) << "134 MB";
    EXPECT_TRUE(icons::bitmapFromResource(packed(5, 0, end)).empty());
}

}  // namespace
