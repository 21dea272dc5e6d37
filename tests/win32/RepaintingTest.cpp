// What is painted again when a window changes.
#include <deque>
#include <map>

#include "EveryControl.h"
#include "support/EditingFixture.h"
#include "win32/Screen.h"

namespace {

// How often each control of the main window was painted, by its name.
std::map<std::string, int> painted;
constexpr const char* Named = "name";
WNDPROC painting;

// Stands before the program's own procedure, which is the same for every control.
LRESULT CALLBACK countPaint(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_PAINT) ++painted[*static_cast<std::string*>(GetPropA(window, Named))];
    return CallWindowProcA(painting, window, message, w, l);
}

using RepaintingTest = EditingFixture;

TEST_F(RepaintingTest, AStepOfResizingPaintsNothingButWhatHasMovedAndTheList) {
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
