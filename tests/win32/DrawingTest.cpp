// What a form draws itself: its lines and its labels.
#include "EveryControl.h"

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

TEST_F(DrawingTest, ALabelIsDrawnWithEveryChangeAndWhereItIs) {
    EveryControl form(desktop);
    form.show();
    const win32::Screen screen;
    const RECT place = screen.pixels(form.label.absoluteBounds());
    const std::string nothing(drawn(form, place).size(), '\xFF');

    std::vector<std::string> pictures{nothing, drawn(form, place)};
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"an ampersand is a letter", [&] { form.label.setCaption("Name:"); }},
        {"disabled", [&] { form.label.setEnabled(false); }},
        {"moved", [&] { form.label.setLeft(form.label.left() + 150); }},
    };
    for (const auto& [what, change] : changes) {
        UpdateWindow(windowOf(form));
        change();
        RECT asked = {}, common = {};
        EXPECT_TRUE(GetUpdateRect(windowOf(form), &asked, FALSE) && IntersectRect(&common, &asked, &place)) << what;
        pictures.push_back(drawn(form, place));
        for (std::size_t i = 0; i + 1 < pictures.size(); ++i) EXPECT_TRUE(pictures[i] != pictures.back()) << what;
    }
    form.label.setVisible(false);
    EXPECT_TRUE(drawn(form, place) == nothing);
    form.unload();
}

TEST_F(DrawingTest, ALabelIsBoldOnlyWhereItSaysSo) {
    EveryControl form(desktop);
    form.show();
    const RECT place = win32::Screen().pixels(form.label.absoluteBounds());
    const std::string plain = drawn(form, place);
    form.label.makeBold();
    EXPECT_TRUE(drawn(form, place) != plain);
    form.unload();
}

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

TEST_F(DrawingTest, APageThatComesBackIsCleanedOfThePageBefore) {
    EveryControl form(desktop);
    form.show();
    const ui::Twips left = form.page.left();
    form.page.setLeft(-10000);
    UpdateWindow(windowOf(form));
    form.page.setLeft(left);
    const RECT place = win32::Screen().pixels(form.page.absoluteBounds());
    RECT asked = {}, common = {};
    GetUpdateRect(windowOf(form), &asked, FALSE);
    IntersectRect(&common, &asked, &place);
    EXPECT_TRUE(EqualRect(&common, &place));
    form.unload();
}

TEST_F(DrawingTest, ALineIsAPixelThick) {
    EveryControl form(desktop);
    form.show();
    const RECT place = {10, 100, 30, 104};
    const std::string before = drawn(form, place);
    form.drawLine({0, 15 * 101, form.client().width, 15 * 101, ui::SystemColour::Shadow3D});
    const std::string after = drawn(form, place);
    std::size_t changed = 0;
    for (std::size_t at = 0; at < after.size(); at += 3) changed += after.compare(at, 3, before, at, 3) != 0;
    EXPECT_EQ(changed, 20u);
    form.unload();
}

}  // namespace
