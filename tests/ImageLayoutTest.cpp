#include "platform/ImageLayout.h"

#include <gtest/gtest.h>

#include "icons/Bitmaps.h"
#include "support/IconBytes.h"

namespace {

using icons::bitmapFromResource;
using platform::Bytes, platform::ByteSpan, platform::iconLayout;

TEST(ImageLayout, SoundImagesOfIconsAreAcceptedAndDamagedOnesAreNot) {
    for (const auto& [what, bytes, isDrawn] : icons::storedImages()) {
        const auto layout = iconLayout(bytes, true);
        EXPECT_EQ(layout.has_value(), isDrawn) << what;
        EXPECT_EQ(iconLayout(bytes, false).has_value(), isDrawn && what != std::string("a PNG")) << what;
        if (!layout) continue;
        EXPECT_EQ(layout->width, 16) << what;
        EXPECT_EQ(layout->height, 16) << what;
        EXPECT_LE(layout->end, bytes.size()) << what;
    }
    for (const Bytes& whole : {icons::image(16, 4).bytes, icons::image(8, 8).bytes, icons::png()})
        for (std::size_t length = 0; length < whole.size(); ++length)
            ASSERT_FALSE(iconLayout(ByteSpan(whole).first(length), true)) << length;
}

TEST(ImageLayout, SaysWhereThePartsOfAnImageAre) {
    const platform::ImageLayout layouts[] = {{16, 16, 1, false, 48, 112, 176},
                                             {17, 17, 4, false, 104, 308, 376},
                                             {32, 32, 8, false, 1064, 2088, 2216},
                                             {3, 3, 24, false, 40, 76, 88}};
    for (const auto& layout : layouts)
        EXPECT_EQ(iconLayout(icons::image(layout.width, layout.bits).bytes, true), layout) << layout.width;
    EXPECT_EQ(iconLayout(icons::patched(icons::png(), 16, {0, 0, 1, 0, 0, 0, 1, 0}), true),
              (platform::ImageLayout{256, 256, 32, true, 82, 82, 82}))
        << "all of it, for the system to say";
}

TEST(ImageLayout, ASmallImageIsEnlargedByAWholeFactorAndALargeOneShrunk) {
    const std::tuple<platform::ImageLayout, int, platform::ImageSize> cases[] = {
        {{32, 32}, 32, {32, 32}}, {{16, 16}, 32, {32, 32}}, {{24, 24}, 32, {24, 24}}, {{24, 24}, 64, {48, 48}},
        {{48, 48}, 32, {32, 32}}, {{16, 8}, 64, {64, 32}},  {{64, 16}, 32, {32, 8}},  {{256, 1}, 16, {16, 1}}};
    for (const auto& [image, room, size] : cases)
        EXPECT_EQ(platform::sizeIn(image, room), size) << image.width << " in " << room;
}

Bytes header(std::uint32_t width, std::uint32_t height, std::uint32_t bits, std::uint32_t packing = 0,
             std::uint32_t size = 40) {
    icons::ByteWriter out;
    return out.u32(size).u32(width).u32(height).u16(1).u16(bits).u32(packing).fill(size - 20).bytes();
}

// Two pixels wide, two high, the lower row first: transparent and opaque, then opaque and half seen.
TEST(ImageLayout, AMissingMaskIsMadeFromThePixelsOwnTransparency) {
    const auto maskOf = [](const Bytes& alphas) {
        Bytes image = header(2, 4, 32);
        for (const std::uint8_t alpha : alphas) image += {1, 2, 3, alpha};
        const Bytes whole = platform::withMask(image, *iconLayout(image, true));
        EXPECT_EQ(whole.substr(0, image.size()), image);
        return whole.substr(image.size());
    };
    EXPECT_EQ(maskOf({0, 0xFF, 0x80, 0x7F}), (Bytes{0x80, 0, 0, 0, 0x40, 0, 0, 0}));
    EXPECT_EQ(maskOf({0, 0, 0, 0}), Bytes(8, 0)) << "stored before there was transparency";
    const Bytes masked = icons::image(16, 32).bytes;
    EXPECT_EQ(platform::withMask(masked, *iconLayout(masked, true)), masked);
}

TEST(ImageLayout, ABitmapMayHaveALongerHeaderAndItsTopRowFirst) {
    const std::tuple<const char*, Bytes, std::size_t> cases[] = {
        {"1 bit", header(3, 2, 1) + Bytes(8 + 8, 0), 48},
        {"24 bits", header(3, 2, 24) + Bytes(24, 0), 40},
        {"top row first", header(3, 0xFFFFFFFE, 24) + Bytes(24, 0), 40},
        {"fields", header(3, 2, 16, 3) + Bytes(12 + 16, 0), 52},
        {"a longer header", header(3, 2, 32, 0, 124) + Bytes(24, 0), 124},
        {"the widest", header(0x3FFF, 2, 1) + Bytes(8 + 4096, 0), 48},
    };
    for (const auto& [what, bytes, pixels] : cases) {
        const auto layout = platform::bitmapLayout(bytes);
        ASSERT_TRUE(layout) << what;
        EXPECT_EQ(layout->height, 2) << what;
        EXPECT_EQ(layout->pixels, pixels) << what;
        EXPECT_FALSE(platform::bitmapLayout(ByteSpan(bytes).first(bytes.size() - 1))) << what;
    }
    for (const auto& [width, height] : {std::pair{3u, 0u}, {3u, 0x80000000}, {3u, 0x4000u}, {0x4000u, 2u}})
        EXPECT_TRUE(bitmapFromResource(header(width, height, 24) + Bytes(200'000, 0)).empty()) << width;
}

TEST(ImageLayout, TheBitmapOfAFileMayHaveItsPixelsFartherOn) {
    const Bytes start{'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0}, pixels(16, 0x77);
    const Bytes bitmap = header(2, 2, 24) + pixels, file = start + bitmap;
    for (const Bytes& whole : {file, icons::patched(start, 10, {64}) + header(2, 2, 24) + Bytes(10, 0) + pixels}) {
        EXPECT_TRUE(std::ranges::equal(icons::bitmapFromFile(whole).image(), bitmap)) << whole.size();
        for (std::size_t length = 0; length < whole.size(); ++length)
            EXPECT_TRUE(icons::bitmapFromFile(ByteSpan(whole).first(length)).empty()) << length;
    }
    // Pixels elsewhere, a header that is too short, a colour table in the place of the pixels.
    for (const Bytes& wrong : {icons::patched(file, 10, Bytes(4, 0xFF)), icons::patched(file, 14, {12}),
                               icons::patched(file, 46, {255}), icons::patched(file, 0, {'b'})})
        EXPECT_TRUE(icons::bitmapFromFile(wrong).empty());
}

TEST(ImageLayout, RunLengthsOfSixteenColoursAreUnpackedAndNothingIsReadOrWrittenBesideThem) {
    const std::pair<Bytes, Bytes> cases[] = {
        {{0, 5, 0x12, 0x34, 0x50, 0, 0, 0, 3, 0x67, 2, 0x89, 0, 1}, {0x12, 0x34, 0x50, 0, 0x67, 0x68, 0x90, 0}},
        {{255, 0x12, 0, 0, 255, 0x34, 0, 0, 255, 0x56, 0, 1}, {0x12, 0x12, 0x10, 0, 0x34, 0x34, 0x30, 0}},
        {{0, 0, 1, 0xF0, 0, 1}, {0, 0, 0, 0, 0xF0, 0, 0, 0}},
    };
    const Bytes packed = header(5, 2, 4, 2) + Bytes(64, 0), plain = header(5, 2, 4) + Bytes(64, 0), end{0, 1};
    for (const auto& [runs, pixels] : cases) {
        const Bytes bytes = packed + runs;
        EXPECT_TRUE(std::ranges::equal(bitmapFromResource(bytes).image(), plain + pixels)) << &runs - &cases[0].first;
        for (std::size_t length = 0; length < bytes.size(); ++length)
            EXPECT_TRUE(bitmapFromResource(ByteSpan(bytes).first(length)).empty()) << length;
    }
    EXPECT_TRUE(bitmapFromResource(packed + Bytes{0, 255, 0x12, 0, 1}).empty()) << "the end is none of the pixels";
    EXPECT_TRUE(bitmapFromResource(header(0x3FFF, 0x3FFF, 4, 2) + Bytes(64, 0) + end).empty()) << "134 MB";
    EXPECT_TRUE(bitmapFromResource(header(5, 0, 4, 2) + Bytes(64, 0) + end).empty());
}

}  // namespace
