// What is painted again when a window changes.
#include <deque>
#include <map>

#include "EveryControl.h"
#include "support/User.h"
#include "win32/Screen.h"

namespace {

// Whether that point of a window is to be painted again.
bool isToBePainted(HWND window, POINT at) {
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    GetUpdateRgn(window, region, FALSE);
    const bool asked = PtInRegion(region, at.x, at.y);
    DeleteObject(region);
    return asked;
}

using RepaintingTest = WindowsTest;

TEST_F(RepaintingTest, WhatHasChangedOrStoodThereIsPaintedAgain) {
    EveryControl form(desktop);
    form.show();
    const HWND all = windowOf(form), frame = windowOf(form.frame), picture = windowOf(form.picture);
    const ui::Bounds wider = {100, 100, 1560, 225};
    const ui::Line line = {0, 1515, 900, 1515, ui::SystemColour::Shadow3D};
    const auto moved = [&](ui::Twips left, ui::Twips top, ui::Twips width) {
        return [&form, place = ui::Bounds{left, top, width, 900}] { form.frame.setBounds(place); };
    };
    const struct {
        const char* what;
        std::function<void()> change;
        HWND window;
        POINT at;
        bool painted = true;
    } rows[] = {
        {"a wider label", [&] { form.label.setBounds(wider); }, windowOf(form.label), {1, 1}},
        {"a frame's old edge", moved(100, 4700, 2400), all, {205, 343}},
        {"its other edges", moved(100, 4700, 2700), all, {100, 371}, false},
        {"its new place", moved(400, 4600, 2700), all, {50, 310}},
        {"the frame", moved(100, 4700, 2700), frame, {1, 20}},
        {"a picture on a button", [&] { form.picture.setPicture(plainBitmap()); }, picture, {5, 5}},
        {"an image", [&] { form.image.setPicture(plainBitmap()); }, all, {390, 10}},
        {"a hidden image", [&] { form.image.setVisible(false); }, all, {390, 10}},
        {"a line", [&] { form.setLines({line}); }, all, {50, 101}},
        {"a line taken away", [&] { form.setLines({}); }, all, {50, 101}},
    };
    for (const auto& row : rows) {
        desktop.doEvents();
        row.change();
        EXPECT_EQ(isToBePainted(row.window, row.at), row.painted) << row.what;
    }
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

using ResizingTest = User;

TEST_F(ResizingTest, AStepOfResizingPaintsNothingButWhatHasMovedAndTheList) {
    system.seedAll();
    window().show();
    std::deque<std::string> names;
    for (ui::Control* control : window().controls()) {
        if (!windowOf(*control)) continue;
        SetPropA(windowOf(*control), Named, &names.emplace_back(control->name()));
        painting = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(windowOf(*control), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&countPaint)));
    }
    desktop.doEvents();
    RECT bounds = {};
    GetWindowRect(windowOf(window()), &bounds);
    const RECT icon = win32::Screen().pixels(window().picZoneIcon.absoluteBounds());
    std::map<std::string, int> atMost{
        {"cmdZoneOption", 3}, {"lblZoneCaption", 1}, {"lblZoneName", 1}, {"lvwZones", 2}, {"zzzfraInfo", 1}};
    for (const int wider : {40, 80, 60}) {
        painted.clear();
        SetWindowPos(windowOf(window()), nullptr, 0, 0, bounds.right - bounds.left + wider, bounds.bottom - bounds.top,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        EXPECT_FALSE(isToBePainted(windowOf(window()), {icon.left + 5, icon.top + 5})) << "the form's, which stays";
        desktop.doEvents();
        for (const auto& [name, times] : painted) EXPECT_LE(times, atMost[name]) << name << " by " << wider;
    }
}

}  // namespace
