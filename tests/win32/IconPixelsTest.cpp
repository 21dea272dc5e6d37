// What comes out where icons, bitmaps and lines are drawn, pixel by pixel.
#include "EveryControl.h"
#include "win32/Graphics.h"

namespace {

constexpr COLORREF White = RGB(255, 255, 255), Red = RGB(255, 0, 0), Blue = RGB(0, 0, 255);

// White paper to draw on.
struct Paper {
    Paper() { PatBlt(context.get(), 0, 0, Side, Side, WHITENESS); }
    COLORREF at(int x, int y) const { return GetPixel(context.get(), x, y); }

    static constexpr int Side = 450;
    win32::MemoryContext context{CreateCompatibleDC(nullptr)};
    win32::Bitmap bitmap{CreateCompatibleBitmap(win32::ScreenContext(), Side, Side)};
    win32::Selected selected{context.get(), bitmap.get()};
};

// The icon takes `size` pixels from (left, top) on, and is alone.
void expectHalves(const Paper& paper, int left, int top, int size, COLORREF around = White) {
    const int half = size / 2, last = size - 1;
    const auto expect = [&](COLORREF colour, std::initializer_list<POINT> points) {
        for (const auto& [x, y] : points)
            if (left + x >= 0 && top + y >= 0) {
                EXPECT_EQ(paper.at(left + x, top + y), colour) << x << ", " << y;
            }
    };
    expect(Red, {{0, 0}, {half - 1, half - 1}});
    expect(Blue, {{half, 0}, {last, half - 1}});
    expect(around, {{half - 1, half}, {last, half}, {0, last}, {-1, 0}, {size, 0}, {0, -1}, {half - 1, size}});
}

struct Shown {
    int dots, image, room, size;
};
constexpr Shown Cases[] = {
    {96, 32, 32, 32},  {96, 16, 32, 32},  {96, 24, 32, 24},  {96, 64, 32, 32},  {192, 64, 64, 64}, {144, 48, 48, 48},
    {144, 32, 48, 32}, {144, 16, 48, 48}, {192, 32, 64, 64}, {192, 16, 64, 64}, {192, 24, 64, 48}, {192, 48, 64, 48},
};

// In a box, and in a list between no picture and a bitmap.
TEST(IconPixels, AnIconFillsItsPlaceAtEveryResolution) {
    for (const auto& [dots, image, room, size] : Cases) {
        SCOPED_TRACE(std::to_string(image) + " at " + std::to_string(dots));
        const Paper box, list;
        win32::PictureDrawing drawing;
        const int edge = (room - size) / 2;
        drawing.draw(box.context.get(), {10, 20, 10 + room, 20 + room}, halvedIcon(image), win32::Screen(dots));
        expectHalves(box, 10 + edge, 20 + edge, size);

        const win32::Images images = win32::makeImages(room);
        for (const ui::Picture& picture : {ui::Picture(), halvedIcon(image), plainBitmap()})
            win32::addPicture(images.get(), room, picture);
        for (int number = 0; number < 3; ++number)
            ImageList_Draw(images.get(), number, list.context.get(), 10 + 100 * number, 20, ILD_TRANSPARENT);
        EXPECT_EQ(list.at(10 + room / 2, 20 + room / 2), White);
        expectHalves(list, 110 + edge, 20 + edge, size);
        EXPECT_EQ(list.at(210, 20), RGB(0x80, 0x80, 0x80));
    }
}

TEST(IconPixels, AFormAndItsControlsAreWhereTheyBelongAtEveryResolution) {
    // In pixels of the form's drawing area, give or take the one that rounding moves: left, top, width, height.
    const struct {
        int dots, text[4], button[4];
    } cases[] = {{96, {113, 7, 100, 21}, {213, 320, 80, 25}},
                 {144, {170, 10, 150, 32}, {320, 480, 120, 38}},
                 {192, {227, 13, 200, 42}, {427, 640, 160, 50}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.dots);
        win32::Desktop desktop(c.dots);
        EveryControl form(desktop);
        const int side = c.dots / 3;
        form.icons.add(halvedIcon(side));
        form.shows.clear();
        form.shows.add({"icon", 2, {}, {}});
        form.picture.setPicture(halvedIcon(side));
        form.show();
        desktop.doEvents();
        for (const auto& [control, expected] :
             {std::pair<ui::Control*, const int*>{&form.text, c.text}, {&form.ok, c.button}}) {
            RECT place = {};
            GetWindowRect(windowOf(*control), &place);
            MapWindowPoints(nullptr, windowOf(form), reinterpret_cast<POINT*>(&place), 2);
            const LONG seen[] = {place.left, place.top, place.right - place.left, place.bottom - place.top};
            for (int i = 0; i < 4; ++i) EXPECT_NEAR(seen[i], expected[i], 1) << control->name() << " " << i;
        }
        RECT listed = {LVIR_ICON, 0, 0, 0}, inside = {};
        ask(form.shows, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&listed));
        GetClientRect(windowOf(form.picture), &inside);
        for (const auto& [control, around, colour] :
             {std::tuple<ui::Control*, RECT, COLORREF>{&form.shows, listed, White},
              {&form.picture, inside, GetSysColor(COLOR_3DFACE)}}) {
            const Paper paper;
            ask(*control, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(paper.context.get()), PRF_CLIENT | PRF_ERASEBKGND);
            const LONG left = (around.left + around.right - side) / 2;
            LONG top = 0;
            while (top < Paper::Side && paper.at(left, top) != Red) ++top;
            expectHalves(paper, left, top, side, colour);
        }
    }
}

TEST(IconPixels, AFormDrawsItsPicturesAndLinesAndATreeItsOptions) {
    win32::Desktop desktop(96);
    EveryControl form(desktop);
    form.show();
    const auto drawn = [&](const Paper& paper) {
        SendMessageA(windowOf(form), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(paper.context.get()), PRF_CLIENT);
    };
    const RECT place = {387, 7, 420, 40};
    const Paper nothing, icon, bitmap, cleared;
    drawn(nothing);
    EXPECT_EQ(nothing.at(place.left, place.top), White);
    form.image.setPicture(halvedIcon(32));
    drawn(icon);
    expectHalves(icon, place.left, place.top, 32);
    form.image.setPicture(plainBitmap());
    drawn(bitmap);
    EXPECT_EQ(bitmap.at(place.left, place.top), RGB(0x80, 0x80, 0x80));
    form.image.clear();
    form.setLines({{3000, 1515, 300, 1515, ui::SystemColour::Shadow3D}});
    drawn(cleared);
    EXPECT_EQ(cleared.at(place.left, place.top), White);
    const COLORREF shadow = GetSysColor(COLOR_3DSHADOW);
    for (const int x : {20, 199})
        for (const int y : {100, 101, 102}) EXPECT_EQ(cleared.at(x, y), y == 101 ? shadow : White) << x << ", " << y;
    for (const int x : {19, 200}) EXPECT_EQ(cleared.at(x, 101), White) << x;

    const int window = COLOR_WINDOW;
    const COLORREF before = GetSysColor(window);
    SetSysColors(1, &window, &Red);
    SendMessageA(windowOf(form), WM_SYSCOLORCHANGE, 0, 0);
    const Paper option;
    ImageList_Draw(reinterpret_cast<HIMAGELIST>(ask(form.tree, TVM_GETIMAGELIST)), 1, option.context.get(), 0, 0, 0);
    EXPECT_EQ(option.at(0, 0), Red) << "an option of the tree, in the new colours";
    SetSysColors(1, &window, &before);
}

}  // namespace
