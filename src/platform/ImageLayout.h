// Where the parts of a stored image are: of a device-independent bitmap, or of one image of an icon.
//
// This is the only rule for what can be drawn: all code that shows an image or passes one on asks it. The system's own
// checks are no substitute: they read wherever the header points, and accept images that are then drawn blank.
#pragma once

#include <optional>

#include "platform/bytes.h"

namespace platform {

struct ImageLayout {
    int width = 0, height = 0;  // pixels
    int bits = 0;               // in a pixel
    bool png = false;           // then only the system knows where its parts are
    std::size_t pixels = 0;     // where they begin: header, colour masks and colour table come first
    std::size_t mask = 0;       // where the pixels end and an icon's mask begins
    std::size_t end = 0;        // where the mask ends; the same as `mask` where there is none
    friend bool operator==(const ImageLayout&, const ImageLayout&) = default;
};

// A bitmap by its header (40 bytes or more) alone; in a file the pixels may be elsewhere. Run lengths and embedded
// formats tell their size only while they are decoded: they are refused.
std::optional<ImageLayout> bitmapHeaderLayout(ByteSpan bitmap);
// The same, refused unless header, colour table and pixels are all there, one after another.
std::optional<ImageLayout> bitmapLayout(ByteSpan bitmap);

// An icon's image, with its mask. Pixels of 32 bits may come without one: they have their own transparency. A PNG is
// judged by its frame alone, and refused where the system does not draw any.
std::optional<ImageLayout> iconLayout(ByteSpan image, bool systemDrawsPng);

// How large an image is shown in a square of `room` pixels: as large as it, or, if it is smaller, enlarged by a whole
// factor, so that no pixel of it is wider than another.
struct ImageSize {
    int width, height;
    friend bool operator==(const ImageSize&, const ImageSize&) = default;
};
ImageSize sizeIn(const ImageLayout& layout, int room);

// The image with a mask, made from the pixels' own transparency if it has none. Systems before Windows XP see only the
// mask, and read on past the end of an image that lacks it. `layout` is what iconLayout says of it.
Bytes withMask(ByteSpan image, const ImageLayout& layout);

}  // namespace platform
