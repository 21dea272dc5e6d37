// Icon images, groups and files in bytes, as program files and ".ico" files hold them.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Modules.h"
#include "simulated/Modules.h"

namespace icons {

using platform::Bytes;

// Appends little-endian numbers and bytes.
class ByteWriter {
public:
    ByteWriter& u8(std::uint32_t value) { return number(value, 1); }
    ByteWriter& u16(std::uint32_t value) { return number(value, 2); }
    ByteWriter& u32(std::uint32_t value) { return number(value, 4); }
    ByteWriter& add(const Bytes& more) { return bytes_ += more, *this; }
    ByteWriter& fill(std::size_t count, std::uint8_t value = 0) { return bytes_.append(count, value), *this; }
    ByteWriter& alignTo(std::size_t step) { return fill((step - bytes_.size() % step) % step); }
    std::size_t size() const { return bytes_.size(); }
    Bytes& bytes() { return bytes_; }

private:
    ByteWriter& number(std::uint32_t value, int size);
    Bytes bytes_;
};

// One image and what the directory says of it. Change a member to get a damaged icon.
struct Image {
    std::uint8_t width = 32, height = 32;  // 0 means 256
    std::uint8_t colours = 0;              // as stored: 0 from 256 colours up
    std::uint16_t planes = 1, bits = 4;
    Bytes bytes;
    std::uint32_t claimedSize = 0;  // "bytes in image"
};

// A valid image of `size` pixels (1 to 256); `seed` makes images of one size differ.
Image image(int size, int bits, std::uint8_t seed = 0);

// The directory of a program file (type 14); image k is the resource `firstId` + k.
Bytes group(const std::vector<Image>& images, std::uint16_t firstId);
// The images of 16, 32 and 48 pixels in 16 colours, and 32 in 256 colours.
std::vector<Image> usualImages(std::uint8_t seed = 0);
// An ".ico" file.
Bytes file(const std::vector<Image>& images);

// A PNG of 16 pixels.
Bytes png();
Bytes patched(Bytes bytes, std::size_t at, const Bytes& with);

// Images as an icon may hold them, sound and damaged, and whether they are to be drawn. Each sound one is 16 pixels
// wide and high, and has a pixel that is seen.
struct StoredImage {
    const char* what;
    Bytes bytes;
    bool isDrawn;
};
std::vector<StoredImage> storedImages();

// Adds the group and its images to a program file.
void addTo(simulated::ProgramFile& program, const platform::ResourceId& name, const std::vector<Image>& images,
           std::uint16_t firstId);

}  // namespace icons
