#include "win32/Screen.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "win32/DelayLoaded.h"

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
    if (kind == ui::Form::Kind::Main) return {WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT};
    return {WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN | DS_MODALFRAME,
            WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT};
}

SIZE windowAround(SIZE client, ui::Form::Kind kind, bool menu) {
    const WindowStyles styles = stylesOf(kind);
    RECT bounds = {0, 0, client.cx, client.cy};
    AdjustWindowRectEx(&bounds, styles.style, menu, styles.extended);
    return {bounds.right - bounds.left, bounds.bottom - bounds.top};
}

std::string shortened(const std::string& text, std::size_t longest) {
    if (text.size() <= longest) return text;
    const char* const begin = text.c_str();
    const char* end = begin;
    for (const char* next = begin; next - begin <= static_cast<std::ptrdiff_t>(longest) - 3;
         next = CharNextA(*next == '&' ? next + 1 : next))  // "&&" is one
        end = next;
    return std::string(begin, end) + "...";
}

RECT workArea(HWND window) {
    RECT first = {};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &first, 0);
    const HMODULE user = GetModuleHandleA("user32.dll");
    const auto monitorOf = exported<decltype(&MonitorFromWindow)>(user, "MonitorFromWindow");
    const auto ask = exported<decltype(&GetMonitorInfoA)>(user, "GetMonitorInfoA");
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    const bool known = monitorOf && ask && ask(monitorOf(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return known ? monitor.rcWork : first;
}

void keepOnScreen(HWND window) {
    const RECT work = workArea(window);
    RECT bounds = {};
    GetWindowRect(window, &bounds);
    // The title bar matters most: a window that is too large extends beyond the right and lower edges.
    const LONG left = std::max(work.left, std::min(bounds.left, work.right - (bounds.right - bounds.left)));
    const LONG top = std::max(work.top, std::min(bounds.top, work.bottom - (bounds.bottom - bounds.top)));
    SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void centre(HWND window, HWND owner) {
    const RECT work = workArea(owner);
    RECT bounds = {}, around = {};
    GetWindowRect(window, &bounds);
    if (!owner || !IsWindowVisible(owner) || IsIconic(owner) || !GetWindowRect(owner, &around)) around = work;

    const LONG width = bounds.right - bounds.left, height = bounds.bottom - bounds.top;
    const LONG left = around.left + (around.right - around.left - width) / 2;
    const LONG top = around.top + (around.bottom - around.top - height) / 2;
    SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    keepOnScreen(window);
}

}  // namespace win32
