#include "icons/Bitmaps.h"

#include "platform/ImageLayout.h"

namespace icons {

namespace {

using platform::ByteSpan;

constexpr std::size_t FileHeaderSize = 14;
constexpr std::size_t PixelOffsetInFile = 10;
constexpr std::size_t PackingInHeader = 16;
constexpr std::uint8_t RunLengthsOfFourBits = 2;

bool fits(std::size_t at, std::size_t size, ByteSpan bytes) {
    return at <= bytes.size() && size <= bytes.size() - at;
}

// Run lengths of 16 colours as plain pixels; empty when they are cut off. No system is shown them: what some of them
// read when run lengths lie is not ours to find out.
platform::Bytes unpacked(ByteSpan bitmap) {
    platform::Bytes plain(bitmap.begin(), bitmap.end());
    plain.replace(PackingInHeader, 8, 8, 0);  // and the number of bytes after it
    const auto layout = platform::bitmapHeaderLayout({plain.data(), plain.size()});
    // Two bytes are a run of 255 pixels at most.
    if (!layout || layout->bits != 4 || layout->pixels > bitmap.size() || layout->end / 64 > bitmap.size()) return {};
    plain.resize(layout->pixels);
    plain.resize(layout->end);

    const auto width = static_cast<std::size_t>(layout->width);
    const std::size_t rowSize = (layout->end - layout->pixels) / static_cast<std::size_t>(layout->height);
    std::size_t row = layout->pixels, x = 0;
    const auto put = [&](std::uint8_t two, std::size_t place) {
        if (x >= width || row >= layout->end) return;
        const int colour = place % 2 ? two & 15 : two >> 4;
        plain[row + x / 2] |= static_cast<std::uint8_t>(x % 2 ? colour : colour << 4);
        ++x;
    };
    for (std::size_t at = layout->pixels; at + 2 <= bitmap.size();) {
        const std::uint8_t length = bitmap[at], what = bitmap[at + 1];
        at += 2;
        if (length > 0) {
            for (std::size_t i = 0; i < length; ++i) put(what, i);
        } else if (what == 0) {  // end of the row
            row += rowSize;
            x = 0;
        } else if (what == 1) {  // end of the bitmap
            return plain;
        } else {  // as many single pixels, filled up to two bytes
            for (std::size_t i = 0; i < what; ++i) put(platform::read8(bitmap, at + i / 2), i);
            at += (what + std::size_t{3}) / 4 * 2;
        }
    }
    return {};
}

}  // namespace

ui::Picture bitmapFromResource(ByteSpan bitmap) {
    if (platform::read32(bitmap, PackingInHeader) == RunLengthsOfFourBits) {
        const platform::Bytes plain = unpacked(bitmap);
        return plain.empty() ? ui::Picture() : bitmapFromResource({plain.data(), plain.size()});
    }
    const auto layout = platform::bitmapLayout(bitmap);
    if (!layout) return {};
    return {ui::Picture::Kind::Bitmap, bitmap.first(layout->end), layout->width, layout->height};
}

ui::Picture bitmapFromFile(ByteSpan file) {
    if (!looksLikeBitmapFile(file) || file.size() < FileHeaderSize) return {};
    const ByteSpan bitmap = file.subspan(FileHeaderSize);
    const auto layout = platform::bitmapHeaderLayout(bitmap);
    if (!layout || layout->pixels > bitmap.size()) return {};
    const std::size_t pixelsAt = platform::read32(file, PixelOffsetInFile), size = layout->end - layout->pixels;
    if (!fits(pixelsAt, size, file)) return {};

    platform::Bytes packed(bitmap.data(), layout->pixels);
    packed.append(file.data() + pixelsAt, size);
    return {ui::Picture::Kind::Bitmap, {packed.data(), packed.size()}, layout->width, layout->height};
}

}  // namespace icons
