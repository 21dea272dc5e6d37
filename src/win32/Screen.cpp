#include "win32/Screen.h"

#include <algorithm>
#include <cstring>

namespace win32 {

namespace {

constexpr int FontPoints = 8;
constexpr int PointsPerInch = 72;

Font makeFont(int pixelsPerInch, int weight) {
    LOGFONTA font = {};
    font.lfHeight = -MulDiv(FontPoints, pixelsPerInch, PointsPerInch);
    font.lfWeight = weight;
    font.lfCharSet = DEFAULT_CHARSET;
    std::strcpy(font.lfFaceName, "MS Shell Dlg");
    return Font(CreateFontIndirectA(&font));
}

}  // namespace

Screen::Screen(int pixelsPerInch)
    : pixelsPerInch_(pixelsPerInch),
      font_(makeFont(pixelsPerInch_, FW_NORMAL)),
      bold_(makeFont(pixelsPerInch_, FW_BOLD)) {}

WindowStyles stylesOf(ui::Form::Kind kind) {
    if (kind == ui::Form::Kind::Main) return {WS_OVERLAPPEDWINDOW, WS_EX_CONTROLPARENT};
    return {WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT};
}

SIZE windowAround(SIZE client, ui::Form::Kind kind, bool menu) {
    const WindowStyles styles = stylesOf(kind);
    RECT bounds = {0, 0, client.cx, client.cy};
    AdjustWindowRectEx(&bounds, styles.style, menu, styles.extended);
    return {bounds.right - bounds.left, bounds.bottom - bounds.top};
}

void centre(HWND window, HWND owner) {
    RECT work = {}, bounds = {}, around = {};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    GetWindowRect(window, &bounds);
    if (!owner || !IsWindowVisible(owner) || IsIconic(owner) || !GetWindowRect(owner, &around)) around = work;

    const LONG width = bounds.right - bounds.left, height = bounds.bottom - bounds.top;
    const LONG left = around.left + (around.right - around.left - width) / 2;
    const LONG top = around.top + (around.bottom - around.top - height) / 2;
    // The title bar matters most: a window that is too large extends beyond the right and lower edges.
    SetWindowPos(window, nullptr, std::max(work.left, std::min(left, work.right - width)),
                 std::max(work.top, std::min(top, work.bottom - height)), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace win32
