// Device-independent bitmaps, as bitmap files and bitmap resources hold them.
#pragma once

#include "platform/bytes.h"
#include "ui/Picture.h"

namespace icons {

// A bitmap as a resource holds it: header, colour table, pixels, or run lengths of 16 colours, which are unpacked. An
// empty picture when something of it is missing.
ui::Picture bitmapFromResource(platform::ByteSpan bitmap);

// A whole ".bmp" file: a header of its own, then the bitmap, whose pixels may stand farther on.
ui::Picture bitmapFromFile(platform::ByteSpan file);
inline bool looksLikeBitmapFile(platform::ByteSpan file) {
    return platform::read8(file, 0) == 'B' && platform::read8(file, 1) == 'M';
}

}  // namespace icons
