// The screen: its resolution, the program's font at that resolution, and positions on it.
#pragma once

#include <string>

#include "ui/Form.h"
#include "win32/Handles.h"

namespace win32 {

class Screen {
public:
    Screen() : Screen(GetDeviceCaps(ScreenContext(), LOGPIXELSX)) {}
    explicit Screen(int pixelsPerInch);

    int pixelsPerInch() const { return pixelsPerInch_; }
    int pixels(ui::Twips length) const { return ui::toPixels(length, pixelsPerInch_); }
    // Corner and size are rounded separately, so that equal widths stay equal.
    RECT pixels(const ui::Bounds& b) const {
        const int left = pixels(b.left), top = pixels(b.top);
        return {left, top, left + pixels(b.width), top + pixels(b.height)};
    }
    ui::Twips twips(int pixels) const { return ui::toTwips(pixels, pixelsPerInch_); }
    // A length that is given in pixels at 96 DPI.
    int scaled(int pixelsAt96) const { return MulDiv(pixelsAt96, pixelsPerInch_, 96); }

    // The program has one font, MS Shell Dlg 8.
    HFONT font(bool bold = false) const { return bold ? bold_.get() : font_.get(); }

private:
    int pixelsPerInch_;
    Font font_, bold_;
};

// The styles of a form's window, which also tell how wide its borders are.
struct WindowStyles {
    DWORD style, extended;
};
WindowStyles stylesOf(ui::Form::Kind kind);
// The window around a drawing area of this size, in pixels.
SIZE windowAround(SIZE client, ui::Form::Kind kind, bool menu);

// What stands for a text of more than `longest` bytes: its beginning, in whole characters, and three dots.
std::string shortened(const std::string& text, std::size_t longest);

// What the task bar leaves of the screen that a window is on; of the first one, where Windows knows no more or there is
// no window.
RECT workArea(HWND window);
// Moves a window into the work area of the screen it is on, or else of the nearest.
void keepOnScreen(HWND window);
// Centres a window on its owner, or on the work area when no owner can be seen, and keeps it within the work area.
void centre(HWND window, HWND owner);

}  // namespace win32
