// What a form draws itself, its lines and pictures; and what is painted when its window changes its size.
#include <deque>
#include <map>

#include "EveryControl.h"

#include "support/EditingFixture.h"
#include "win32/Handles.h"
#include "win32/Screen.h"

namespace {

// The form's own drawing within a place, white where nothing is drawn, as 24-bit pixels.
std::string drawn(const ui::Form& form, const RECT& place) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = place.right - place.left;
    info.bmiHeader.biHeight = place.bottom - place.top;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    void* bits = nullptr;
    const win32::MemoryContext context(CreateCompatibleDC(nullptr));
    const win32::Bitmap bitmap(CreateDIBSection(context.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const win32::Selected selected(context.get(), bitmap.get());
    const LONG stride = (info.bmiHeader.biWidth * 3 + 3) / 4 * 4;
    std::fill_n(static_cast<char*>(bits), stride * info.bmiHeader.biHeight, '\xFF');
    SetViewportOrgEx(context.get(), -place.left, -place.top, nullptr);
    SendMessageA(windowOf(form), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(context.get()), PRF_CLIENT);
    GdiFlush();
    return {static_cast<const char*>(bits), static_cast<std::size_t>(stride * info.bmiHeader.biHeight)};
}

using DrawingTest = WindowsTest;

TEST_F(DrawingTest, AnImageIsDrawnAtItsPlaceUntilItIsTakenAway) {
    EveryControl form(desktop);
    form.show();
    const RECT place = win32::Screen().pixels(form.image.absoluteBounds());
    const std::string nothing(drawn(form, place).size(), '\xFF');
    EXPECT_TRUE(drawn(form, place) == nothing);
    form.image.setPicture(plainIcon());
    const std::string icon = drawn(form, place);
    EXPECT_TRUE(icon != nothing);
    form.image.setPicture(plainBitmap());
    EXPECT_TRUE(drawn(form, place) != icon);
    EXPECT_TRUE(drawn(form, place) != nothing);
    RECT asked = {}, common = {};
    EXPECT_TRUE(GetUpdateRect(windowOf(form), &asked, FALSE) && IntersectRect(&common, &asked, &place));
    form.image.clear();
    EXPECT_TRUE(drawn(form, place) == nothing);
    form.unload();
}

TEST_F(DrawingTest, ALineIsAPixelThick) {
    EveryControl form(desktop);
    form.show();
    const RECT place = {10, 100, 30, 104};
    const std::string before = drawn(form, place);
    form.setLines({{0, 15 * 101, form.client().width, 15 * 101, ui::SystemColour::Shadow3D}});
    const std::string after = drawn(form, place);
    std::size_t changed = 0;
    for (std::size_t at = 0; at < after.size(); at += 3) changed += after.compare(at, 3, before, at, 3) != 0;
    EXPECT_EQ(changed, 20u);
    form.unload();
}

// How often each control of the main window was painted, by its name.
std::map<std::string, int> painted;
constexpr const char* Named = "name";
WNDPROC painting;

// Stands before the program's own procedure, which is the same for every control.
LRESULT CALLBACK countPaint(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_PAINT) ++painted[*static_cast<std::string*>(GetPropA(window, Named))];
    return CallWindowProcA(painting, window, message, w, l);
}

using ResizingTest = EditingFixture;

TEST_F(ResizingTest, AStepPaintsNothingButWhatHasMovedAndTheList) {
    window->show();
    std::deque<std::string> names;
    for (ui::Control* control : window->controls()) {
        if (!windowOf(*control)) continue;
        SetPropA(windowOf(*control), Named, &names.emplace_back(control->name()));
        painting = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(windowOf(*control), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&countPaint)));
    }
    desktop.doEvents();
    RECT bounds = {};
    GetWindowRect(windowOf(*window), &bounds);
    const RECT icon = win32::Screen().pixels(window->picZoneIcon.absoluteBounds());
    std::map<std::string, int> atMost{
        {"cmdZoneOption", 3}, {"lblZoneCaption", 1}, {"lblZoneName", 1}, {"lvwZones", 2}, {"zzzfraInfo", 1}};
    for (const int wider : {40, 80, 60}) {
        painted.clear();
        SetWindowPos(windowOf(*window), nullptr, 0, 0, bounds.right - bounds.left + wider, bounds.bottom - bounds.top,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        const HRGN own = CreateRectRgn(0, 0, 0, 0);
        GetUpdateRgn(windowOf(*window), own, FALSE);
        EXPECT_FALSE(RectInRegion(own, &icon)) << "what the form draws has not moved";
        DeleteObject(own);
        desktop.doEvents();
        for (const auto& [name, times] : painted) EXPECT_LE(times, atMost[name]) << name << " by " << wider;
    }
}

}  // namespace
