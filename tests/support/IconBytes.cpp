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

// 16 pixels wide and high, of one opaque colour.
Bytes png() {
    return {0x89, 'P',  'N',  'G',  0x0D, 0x0A, 0x1A, 0x0A,                                      //
            0x00, 0x00, 0x00, 0x0D, 'I',  'H',  'D',  'R',  0x00, 0x00, 0x00, 0x10, 0x00, 0x00,  //
            0x00, 0x10, 0x08, 0x06, 0x00, 0x00, 0x00, 0x1F, 0xF3, 0xFF, 0x61,                    //
            0x00, 0x00, 0x00, 0x19, 'I',  'D',  'A',  'T',  0x18, 0xD3, 0x63, 0x70, 0x68, 0x38,  //
            0xF0, 0x9F, 0x12, 0xCC, 0x30, 0x6A, 0xC0, 0xA8, 0x01, 0xA3, 0x06, 0x0C, 0x17, 0x03,  //
            0x00, 0x09, 0x8F, 0x7F, 0x1F, 0x92, 0xFC, 0x35, 0x82,                                //
            0x00, 0x00, 0x00, 0x00, 'I',  'E',  'N',  'D',  0xAE, 0x42, 0x60, 0x82};
}

Bytes patched(Bytes bytes, std::size_t at, const Bytes& with) {
    return bytes.replace(at, with.size(), with);
}

std::vector<StoredImage> storedImages() {
    const auto bits = [](int count) { return image(16, count).bytes; };
    constexpr std::size_t header = 40, width = 4, height = 8, planes = 12, depth = 14, compression = 16, used = 32;
    constexpr std::size_t mask = 4 * 16;
    // Three masks after the header, for red, green and blue.
    const Bytes masks{0, 0xF8, 0, 0, 0xE0, 7, 0, 0, 0x1F, 0, 0, 0};
    const auto bitFields = [&](int count) { return patched(bits(count), compression, {3}).insert(header, masks); };
    const auto unmasked = [&](int count) { return bits(count).substr(0, bits(count).size() - mask); };
    const Bytes drawing = png();
    std::vector<StoredImage> images{
        {"more than there has to be", bits(4) + Bytes{1, 2, 3}, true},
        {"16 of 256 colours", patched(bits(8), used, {16}).erase(header, 240 * 4), true},
        {"a palette for 24 bits", patched(bits(24), used, {2}).insert(header, 8, 0), true},
        {"16 bits with fields", bitFields(16), true},
        {"32 bits with fields", bitFields(32), true},
        {"32 bits without a mask", unmasked(32), true},
        {"32 bits and half a mask", bits(32).substr(0, bits(32).size() - mask / 2), true},
        {"a PNG", drawing, true},

        {"32 bits, a pixel short", bits(32).substr(0, bits(32).size() - mask - 1), false},
        {"24 bits without a mask", unmasked(24), false},
        {"odd height", patched(bits(4), height, {31}), false},
        {"no height", patched(bits(4), height, {0}), false},
        {"top row first", patched(bits(4), height, {0xE0, 0xFF, 0xFF, 0xFF}), false},
        {"no width", patched(bits(4), width, {0}), false},
        {"1 pixel wider than an icon can be", patched(bits(1), width, {1, 4, 0, 0, 2, 0, 0, 0}) + Bytes(300, 0), false},
        {"a header of 12 bytes", patched(bits(4), 0, {12}), false},
        {"a longer header", patched(bits(4), 0, {52}).insert(header, 12, 0), false},
        {"no planes", patched(bits(4), planes, {0}), false},
        {"no bits", patched(bits(4), depth, {0}), false},
        {"2 bits", patched(bits(4), depth, {2}), false},
        {"24 bits with fields", bitFields(24), false},
        {"run lengths", patched(bits(8), compression, {1}), false},
        {"300 colours used", patched(bits(8), used, {0x2C, 1}).insert(header, 44 * 4, 0), false},
        {"nothing", {}, false},
        {"a PNG 257 pixels wide", patched(drawing, 18, {1, 1}), false},
        {"a PNG 257 pixels high", patched(drawing, 22, {1, 1}), false},
        {"a PNG without width", patched(drawing, 16, {0, 0, 0, 0}), false},
        {"a PNG of no kind of colour", patched(drawing, 25, {5}), false},
        {"a PNG that begins with its end", patched(drawing, 12, {'I', 'E', 'N', 'D'}), false},
        {"a PNG without pixels", drawing.substr(0, 33) + drawing.substr(drawing.size() - 12), false},
        {"a chunk of a PNG as long as can be", patched(drawing, 33, {0xFF, 0xFF, 0xFF, 0xFF}), false},
    };
    for (const int count : {1, 4, 8, 16, 24, 32}) images.push_back({"as it should be", bits(count), true});
    return images;
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
