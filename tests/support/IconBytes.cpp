#include "support/IconBytes.h"

namespace icons {

namespace {

void header(ByteWriter& out, std::size_t count) {
    out.u16(0).u16(1).u16(static_cast<std::uint32_t>(count));
}

void entry(ByteWriter& out, const Image& image) {
    out.u8(image.width).u8(image.height).u8(image.colours).u8(0).u16(image.planes).u16(image.bits);
    out.u32(image.claimedSize);
}

}  // namespace

ByteWriter& ByteWriter::number(std::uint32_t value, int size) {
    for (; size > 0; --size, value >>= 8) bytes_.push_back(static_cast<std::uint8_t>(value));
    return *this;
}

Image image(int size, int bits, std::uint8_t seed) {
    const auto side = static_cast<std::uint32_t>(size), depth = static_cast<std::uint32_t>(bits);
    const std::size_t row = (side * depth + 31) / 32 * 4, maskRow = (side + 31) / 32 * 4;
    ByteWriter out;
    out.u32(40).u32(side).u32(side * 2).u16(1).u16(depth).u32(0).u32(static_cast<std::uint32_t>(row * side));
    out.u32(0).u32(0).u32(0).u32(0);
    for (std::uint32_t colour = 0; depth <= 8 && colour < 1u << depth; ++colour)
        out.u8(colour * 16).u8(colour * 5).u8(255 - colour).u8(0);
    out.fill(row * side, static_cast<std::uint8_t>(0x11 * (seed % 15 + 1)));
    out.fill(maskRow * side);
    Image image;
    image.width = image.height = static_cast<std::uint8_t>(size);
    image.colours = static_cast<std::uint8_t>(bits < 8 ? 1 << bits : 0);
    image.bits = static_cast<std::uint16_t>(bits);
    image.claimedSize = static_cast<std::uint32_t>(out.size());
    image.bytes = out.bytes();
    return image;
}

Bytes group(const std::vector<Image>& images, std::uint16_t firstId) {
    ByteWriter out;
    header(out, images.size());
    for (const Image& image : images) {
        entry(out, image);
        out.u16(firstId++);
    }
    return out.bytes();
}

std::vector<Image> usualImages(std::uint8_t seed) {
    return {image(16, 4, seed), image(32, 4, seed), image(48, 4, seed), image(32, 8, seed)};
}

Bytes file(const std::vector<Image>& images) {
    ByteWriter out;
    header(out, images.size());
    std::size_t offset = 6 + 16 * images.size();
    for (const Image& image : images) {
        entry(out, image);
        out.u32(static_cast<std::uint32_t>(offset));
        offset += image.bytes.size();
    }
    for (const Image& image : images) out.add(image.bytes);
    return out.bytes();
}

void addTo(simulated::ProgramFile& program, const platform::ResourceId& name, const std::vector<Image>& images,
           std::uint16_t firstId) {
    program.add(platform::RtGroupIcon, name, group(images, firstId));
    for (const Image& image : images) program.add(platform::RtIcon, firstId++, image.bytes);
}

}  // namespace icons
