#include "icons/Bitmaps.h"

#include "platform/ImageLayout.h"

namespace icons {

namespace {

using platform::ByteSpan;

constexpr std::size_t FileHeaderSize = 14;
constexpr std::size_t PixelOffsetInFile = 10;

bool fits(std::size_t at, std::size_t size, ByteSpan bytes) {
    return at <= bytes.size() && size <= bytes.size() - at;
}

}  // namespace

ui::Picture bitmapFromResource(ByteSpan bitmap) {
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
