// Pictures made into pixels.
#pragma once

#include "ui/ListView.h"
#include "ui/Picture.h"
#include "win32/Handles.h"

namespace win32 {

// None when the picture is no icon, or damaged.
Icon makeIcon(const ui::Picture& picture, int width, int height);

// Width and height of a bitmap picture, { 0, 0 } when it is no bitmap or damaged.
SIZE bitmapSize(const ui::Picture& picture);
// Stretches a bitmap picture over the rectangle; what is damaged draws nothing.
void drawBitmap(HDC context, const RECT& target, const ui::Picture& picture);

// An image list of square places, wherein every picture added takes one, a blank one if it cannot be drawn.
Images makeImages(int size);
void addPicture(HIMAGELIST images, int size, const ui::Picture& picture);
// An option button as the system draws it, `diameter` pixels wide, on the background of lists.
void addOptionButton(HIMAGELIST images, int size, int diameter, bool selected);

// The native half of an image list, null while it has none.
HIMAGELIST imagesOf(const ui::ImageList* list);

}  // namespace win32
