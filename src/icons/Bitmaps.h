// Device-independent bitmaps, as bitmap files and bitmap resources hold them.
#pragma once

#include "icons/Bytes.h"
#include "ui/Picture.h"

namespace icons {

// A bitmap as a resource holds it: header, colour table, pixels. An empty picture when something of it is missing.
ui::Picture bitmapFromResource(ByteSpan bitmap);

// A whole ".bmp" file: a header of its own, then the bitmap, whose pixels may stand farther behind.
ui::Picture bitmapFromFile(ByteSpan file);
inline bool looksLikeBitmapFile(ByteSpan file) {
    return read8(file, 0) == 'B' && read8(file, 1) == 'M';
}

}  // namespace icons
