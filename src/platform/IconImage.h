// Which bytes every system takes as one image of an icon. The system's own check is no use here: it reads where the
// image's header points, whatever is there.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <span>

namespace platform {

inline std::uint32_t littleEndian(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t size) {
    std::uint32_t number = 0;
    for (std::size_t i = size; i-- > 0;) number = number << 8 | bytes[at + i];
    return number;
}

// A PNG, of which only the signature is looked at, or a bitmap with its header of 40 bytes, colour table, colours and
// mask all there. The header's height counts the colours' rows and the mask's.
inline bool isIconImage(std::span<const std::uint8_t> image) {
    constexpr std::uint8_t png[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    constexpr std::uint32_t largestSide = 1024;
    if (image.size() > std::size(png) && std::ranges::equal(image.first(std::size(png)), png)) return true;
    if (image.size() < 40 || littleEndian(image, 0, 4) != 40) return false;
    const std::uint64_t width = littleEndian(image, 4, 4), height = littleEndian(image, 8, 4) / 2;
    const std::uint32_t bits = littleEndian(image, 14, 2), used = littleEndian(image, 32, 4);
    if (width < 1 || width > largestSide || height < 1 || height > largestSide) return false;
    if (bits != 1 && bits != 4 && bits != 8 && bits != 16 && bits != 24 && bits != 32) return false;
    const std::uint64_t colours = bits > 8 || used != 0 ? used : std::uint64_t{1} << bits;
    const std::uint64_t row = (width * bits + 31) / 32 * 4, maskRow = (width + 31) / 32 * 4;
    return image.size() >= 40 + colours * 4 + (row + maskRow) * height;
}

}  // namespace platform
