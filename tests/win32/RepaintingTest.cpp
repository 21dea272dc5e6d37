// What is painted again when a window changes.
#include "EveryControl.h"

namespace {

// Whether that point of a window is to be painted again.
bool isToBePainted(HWND window, POINT at) {
    return regionHas(at, [&](HRGN region) { GetUpdateRgn(window, region, FALSE); });
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

}  // namespace
