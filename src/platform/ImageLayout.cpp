#include "platform/ImageLayout.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace platform {

namespace {

constexpr std::uint32_t InfoHeaderSize = 40;
enum : std::uint32_t { Uncompressed = 0, BitFields = 3 };
constexpr std::uint32_t MostColours = 256;
// They also keep the sums below from overflowing where sizes have 32 bits.
constexpr int LargestBitmapSide = 0x3FFF, LargestIconSide = 1024, LargestPngSide = 256;

// Rows are padded to four bytes.
constexpr std::size_t rowBytes(int width, int bits) {
    return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bits) + 31) / 32 * 4;
}

std::int32_t storedHeight(ByteSpan bitmap) {
    return static_cast<std::int32_t>(read32(bitmap, 8));
}

bool isDepth(std::uint16_t bits, std::uint32_t compression) {
    if (compression == BitFields) return bits == 16 || bits == 32;
    constexpr std::array<std::uint16_t, 6> depths{1, 4, 8, 16, 24, 32};
    return compression == Uncompressed && std::ranges::find(depths, bits) != depths.end();
}

// ---- PNG

constexpr std::array<std::uint8_t, 8> PngSignature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::size_t PngHeaderAt = 8, ChunkFrame = 12;  // length, type and check sum of a chunk, 4 bytes each
constexpr std::uint32_t PngHeaderLength = 13;

constexpr std::uint32_t chunkType(const char (&name)[5]) {
    std::uint32_t type = 0;
    for (int i = 0; i < 4; ++i) type = type << 8 | static_cast<std::uint8_t>(name[i]);
    return type;
}

// In a PNG the highest byte comes first.
std::uint32_t readReversed32(ByteSpan bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i) number = number << 8 | read8(bytes, at + i);
    return number;
}

bool isPng(ByteSpan image) {
    return image.size() >= PngSignature.size() && std::ranges::equal(image.first(PngSignature.size()), PngSignature);
}

// Numbers in a pixel, by colour type; 0 where there is no such type.
int pngChannels(std::uint8_t colourType) {
    constexpr std::array<std::uint8_t, 7> channels{1, 0, 3, 1, 2, 0, 4};
    return colourType < channels.size() ? channels[colourType] : 0;
}

// Whether chunk follows chunk up to the one that ends the image.
bool pngIsWhole(ByteSpan image) {
    bool hasPixels = false;
    for (std::size_t at = PngHeaderAt; image.size() - at >= ChunkFrame;) {
        const std::uint32_t length = readReversed32(image, at), type = readReversed32(image, at + 4);
        if (length > image.size() - at - ChunkFrame) return false;
        if (type == chunkType("IEND")) return hasPixels;
        if (type == chunkType("IDAT")) hasPixels = true;
        at += ChunkFrame + length;
    }
    return false;
}

// The sides are read from the header: decoding a large one to find out takes seconds.
std::optional<ImageLayout> pngLayout(ByteSpan image) {
    if (readReversed32(image, PngHeaderAt) != PngHeaderLength) return std::nullopt;
    if (readReversed32(image, PngHeaderAt + 4) != chunkType("IHDR")) return std::nullopt;
    const std::uint32_t width = readReversed32(image, 16), height = readReversed32(image, 20);
    if (width < 1 || width > LargestPngSide || height < 1 || height > LargestPngSide) return std::nullopt;
    const int bits = read8(image, 24) * pngChannels(read8(image, 25));
    if (bits == 0 || !pngIsWhole(image)) return std::nullopt;
    ImageLayout layout{static_cast<int>(width), static_cast<int>(height), bits, true};
    layout.pixels = layout.mask = layout.end = image.size();
    return layout;
}

// ---- masks

std::uint8_t alphaAt(ByteSpan image, const ImageLayout& layout, int x, int row) {
    const std::size_t pixel = static_cast<std::size_t>(row) * static_cast<std::size_t>(layout.width) + x;
    return image[layout.pixels + 4 * pixel + 3];
}

// Without a single visible pixel the fourth byte means nothing: such images were stored before it meant anything.
bool hasTransparency(ByteSpan image, const ImageLayout& layout) {
    for (std::size_t at = layout.pixels + 3; at < layout.mask; at += 4)
        if (image[at] != 0) return true;
    return false;
}

}  // namespace

std::optional<ImageLayout> bitmapHeaderLayout(ByteSpan bitmap) {
    const std::uint32_t headerSize = read32(bitmap, 0);
    if (headerSize < InfoHeaderSize || headerSize > bitmap.size()) return std::nullopt;
    const auto width = static_cast<std::int32_t>(read32(bitmap, 4));
    const std::int64_t height = std::abs(std::int64_t{storedHeight(bitmap)});  // below 0: the top row comes first
    if (width < 1 || width > LargestBitmapSide || height < 1 || height > LargestBitmapSide) return std::nullopt;

    const std::uint16_t planes = read16(bitmap, 12), bits = read16(bitmap, 14);
    const std::uint32_t compression = read32(bitmap, 16), coloursUsed = read32(bitmap, 32);
    if (planes != 1 || !isDepth(bits, compression) || coloursUsed > MostColours) return std::nullopt;

    const std::uint32_t colours = coloursUsed ? coloursUsed : bits <= 8 ? 1U << bits : 0;
    const std::size_t masks = compression == BitFields && headerSize == InfoHeaderSize ? 12 : 0;
    ImageLayout layout{width, static_cast<int>(height), bits};
    layout.pixels = headerSize + masks + colours * std::size_t{4};
    layout.mask = layout.end = layout.pixels + rowBytes(width, bits) * static_cast<std::size_t>(height);
    return layout;
}

std::optional<ImageLayout> bitmapLayout(ByteSpan bitmap) {
    const auto layout = bitmapHeaderLayout(bitmap);
    return layout && layout->end <= bitmap.size() ? layout : std::nullopt;
}

std::optional<ImageLayout> iconLayout(ByteSpan image, bool systemDrawsPng) {
    if (isPng(image)) return systemDrawsPng ? pngLayout(image) : std::nullopt;
    auto layout = bitmapHeaderLayout(image);
    if (!layout || read32(image, 0) != InfoHeaderSize) return std::nullopt;
    // The header counts the rows of the pixels and those of the mask.
    if (storedHeight(image) < 0 || layout->height % 2) return std::nullopt;
    layout->height /= 2;
    if (layout->width > LargestIconSide || layout->height > LargestIconSide) return std::nullopt;

    const auto rows = static_cast<std::size_t>(layout->height);
    layout->mask = layout->pixels + rowBytes(layout->width, layout->bits) * rows;
    layout->end = layout->mask + rowBytes(layout->width, 1) * rows;
    if (layout->end > image.size() && layout->bits == 32) layout->end = layout->mask;
    return layout->end <= image.size() ? layout : std::nullopt;
}

ImageSize sizeIn(const ImageLayout& layout, int room) {
    const int longer = std::max(layout.width, layout.height);
    if (longer > room) return {std::max(1, layout.width * room / longer), std::max(1, layout.height * room / longer)};
    return {layout.width * (room / longer), layout.height * (room / longer)};
}

Bytes withMask(ByteSpan image, const ImageLayout& layout) {
    if (layout.png || layout.end > layout.mask) return Bytes(image.begin(), image.end());
    Bytes whole(image.data(), layout.mask);
    const std::size_t row = rowBytes(layout.width, 1);
    whole.append(row * static_cast<std::size_t>(layout.height), 0);
    if (!hasTransparency(image, layout)) return whole;
    for (int y = 0; y < layout.height; ++y)
        for (int x = 0; x < layout.width; ++x)
            if (alphaAt(image, layout, x, y) < 0x80)
                whole[layout.mask + row * static_cast<std::size_t>(y) + static_cast<std::size_t>(x / 8)] |=
                    static_cast<std::uint8_t>(0x80 >> x % 8);
    return whole;
}

}  // namespace platform
