#include "icons/Bitmaps.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>

namespace icons {

namespace {

constexpr std::size_t FileHeaderSize = 14;
constexpr std::size_t PixelOffsetInFile = 10;
constexpr std::uint32_t InfoHeaderSize = 40;
enum : std::uint32_t { Uncompressed = 0, BitFields = 3 };
constexpr std::array<std::uint16_t, 6> BitCounts{1, 4, 8, 16, 24, 32};

struct Layout {
    int width = 0, height = 0;
    std::size_t pixelsAt = 0;  // size of header and colour table
    std::size_t pixelBytes = 0;
};

// Nothing for a header that no drawing function should be given. Run lengths tell their size only while being drawn:
// they count as damaged. The limits also keep the sums below from overflowing where sizes have 32 bits.
std::optional<Layout> layoutOf(ByteSpan bitmap) {
    const std::uint32_t headerSize = read32(bitmap, 0);
    if (headerSize < InfoHeaderSize || headerSize > bitmap.size()) return std::nullopt;
    const auto width = static_cast<std::int32_t>(read32(bitmap, 4));
    const std::int64_t height = std::abs(std::int64_t{static_cast<std::int32_t>(read32(bitmap, 8))});  // < 0: top down
    constexpr int Largest = 0x3FFF;
    if (width <= 0 || width > Largest || height == 0 || height > Largest) return std::nullopt;

    const std::uint16_t bits = read16(bitmap, 14);
    const std::uint32_t compression = read32(bitmap, 16);
    const std::uint32_t coloursUsed = read32(bitmap, 32);
    if (std::find(BitCounts.begin(), BitCounts.end(), bits) == BitCounts.end()) return std::nullopt;
    if ((compression != Uncompressed && compression != BitFields) || coloursUsed > 256) return std::nullopt;

    const std::uint32_t colours = coloursUsed ? coloursUsed : bits <= 8 ? 1U << bits : 0;
    const std::size_t masks = compression == BitFields && headerSize == InfoHeaderSize ? 12 : 0;
    const auto rowBytes = (static_cast<std::size_t>(width) * bits + 31) / 32 * 4;

    Layout layout;
    layout.width = width;
    layout.height = static_cast<int>(height);
    layout.pixelsAt = headerSize + masks + colours * std::size_t{4};
    layout.pixelBytes = rowBytes * static_cast<std::size_t>(height);
    return layout;
}

bool fits(std::size_t at, std::size_t size, ByteSpan bytes) {
    return at <= bytes.size() && size <= bytes.size() - at;
}

}  // namespace

ui::Picture bitmapFromResource(ByteSpan bitmap) {
    const auto layout = layoutOf(bitmap);
    if (!layout || !fits(layout->pixelsAt, layout->pixelBytes, bitmap)) return {};
    return {ui::Picture::Kind::Bitmap, bitmap.first(layout->pixelsAt + layout->pixelBytes), layout->width,
            layout->height};
}

ui::Picture bitmapFromFile(ByteSpan file) {
    if (!looksLikeBitmapFile(file) || file.size() < FileHeaderSize) return {};
    const ByteSpan bitmap = file.subspan(FileHeaderSize);
    const auto layout = layoutOf(bitmap);
    const std::size_t pixelsAt = read32(file, PixelOffsetInFile);
    if (!layout || layout->pixelsAt > bitmap.size() || !fits(pixelsAt, layout->pixelBytes, file)) return {};

    ui::Picture::Bytes packed(bitmap.data(), layout->pixelsAt);
    packed.append(file.data() + pixelsAt, layout->pixelBytes);
    return {ui::Picture::Kind::Bitmap, {packed.data(), packed.size()}, layout->width, layout->height};
}

}  // namespace icons
