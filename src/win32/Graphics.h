// Converts pictures to pixels.
#pragma once

#include "platform/bytes.h"
#include "ui/Picture.h"
#include "win32/Screen.h"

namespace win32 {

// From the image of an icon; none when it is one that cannot be drawn.
Icon makeIcon(platform::ByteSpan image, int width, int height);
// None when the picture is no icon, or damaged.
Icon makeIcon(const ui::Picture& picture, int width, int height);

// The same in a square of `room` pixels: as large as it, or enlarged by a whole factor.
struct SizedIcon {
    Icon icon;
    SIZE size = {0, 0};
};
SizedIcon makeIcon(const ui::Picture& picture, int room);

// Width and height of a bitmap picture, { 0, 0 } when it is no bitmap or damaged.
SIZE bitmapSize(const ui::Picture& picture);
// Stretches a bitmap picture over the rectangle; what is damaged draws nothing.
void drawBitmap(HDC context, const RECT& target, const ui::Picture& picture);

// Draws a picture at its place: an icon in the middle, a bitmap as high as the place, from its left edge on.
class PictureDrawing {
public:
    void draw(HDC context, const RECT& place, const ui::Picture& picture, const Screen& screen);
    // Where that is; empty for no picture.
    RECT extent(const RECT& place, const ui::Picture& picture, const Screen& screen);

private:
    // The icon made last, and its picture: most pictures are drawn many times, and some never.
    SizedIcon icon_;
    ui::Picture of_;
};

// An image list of square pictures. Every picture that is added takes one index; one that cannot be drawn is blank.
Images makeImages(int size);
void addPicture(HIMAGELIST images, int size, const ui::Picture& picture);
// An option button as the system draws it, `diameter` pixels wide, on the background of lists.
void addOptionButton(HIMAGELIST images, int size, int diameter, bool selected);

}  // namespace win32
