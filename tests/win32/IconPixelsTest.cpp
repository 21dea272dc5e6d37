// What comes out where icons, bitmaps and lines are drawn, pixel by pixel.
#include "EveryControl.h"
#include "support/IconBytes.h"
#include "win32/Graphics.h"

namespace {

constexpr COLORREF White = RGB(255, 255, 255), Red = RGB(255, 0, 0), Blue = RGB(0, 0, 255);

// A square icon whose left half is red and whose right half is blue; its lower half is not seen.
ui::Picture halves(int size) {
    icons::ByteWriter out;
    const auto side = static_cast<std::uint32_t>(size);
    out.u32(40).u32(side).u32(2 * side).u16(1).u16(24).fill(24);
    for (int row = size; row-- > 0;) {
        for (int x = 0; x < size; ++x) {
            const bool seen = row < size / 2, left = x < size / 2;
            out.u8(seen && !left ? 255 : 0).u8(0).u8(seen && left ? 255 : 0);
        }
        out.alignTo(4);
    }
    const std::size_t maskRow = (side + 31) / 32 * 4;
    out.fill(maskRow * (side / 2), 0xFF).fill(maskRow * (side - side / 2), 0);
    return {ui::Picture::Kind::Icon, {out.bytes().data(), out.size()}, size, size};
}

// White paper to draw on.
class Paper {
public:
    Paper()
        : context_(CreateCompatibleDC(nullptr)),
          bitmap_(make(context_.get())),
          selected_(context_.get(), bitmap_.get()) {
        PatBlt(context_.get(), 0, 0, Side, Side, WHITENESS);
    }
    static constexpr int Side = 450;
    HDC context() const { return context_.get(); }
    COLORREF at(int x, int y) const { return GetPixel(context_.get(), x, y); }

private:
    static HBITMAP make(HDC context) {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof info.bmiHeader, Side, Side, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        return CreateDIBSection(context, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    }
    win32::MemoryContext context_;
    win32::Bitmap bitmap_;
    win32::Selected selected_;
};

// The icon takes `size` pixels from (left, top) on, and around it everything is white.
void expectHalves(const Paper& paper, int left, int top, int size) {
    const int half = size / 2, last = size - 1;
    const std::tuple<int, int, COLORREF> pixels[] = {
        {0, 0, Red},
        {half - 1, half - 1, Red},
        {half, 0, Blue},
        {last, half - 1, Blue},
        {half - 1, half, White},
        {last, half, White},
        {0, last, White},
        {-1, 0, White},
        {size, 0, White},
        {0, -1, White},
        {half - 1, size, White},
    };
    for (const auto& [x, y, colour] : pixels)
        if (left + x >= 0 && top + y >= 0) {
            EXPECT_EQ(paper.at(left + x, top + y), colour) << x << ", " << y;
        }
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
        drawing.draw(box.context(), {10, 20, 10 + room, 20 + room}, halves(image), win32::Screen(dots));
        expectHalves(box, 10 + edge, 20 + edge, size);

        const win32::Images images = win32::makeImages(room);
        for (const ui::Picture& picture : {ui::Picture(), halves(image), plainBitmap()})
            win32::addPicture(images.get(), room, picture);
        for (int number = 0; number < 3; ++number)
            ImageList_Draw(images.get(), number, list.context(), 10 + 100 * number, 20, ILD_TRANSPARENT);
        EXPECT_EQ(list.at(10 + room / 2, 20 + room / 2), White);
        expectHalves(list, 110 + edge, 20 + edge, size);
        EXPECT_EQ(list.at(210, 20), RGB(0x80, 0x80, 0x80));
    }
}

// What of the icon is on the paper: how many of its pixels, and where.
struct Seen {
    explicit Seen(const Paper& paper) {
        for (LONG y = 0; y < Paper::Side; ++y)
            for (LONG x = 0; x < Paper::Side; ++x) {
                const COLORREF colour = paper.at(x, y);
                red += colour == Red;
                blue += colour == Blue;
                if (colour != Red && colour != Blue) continue;
                place = {std::min(place.left, x), std::min(place.top, y), std::max(place.right, x + 1),
                         std::max(place.bottom, y + 1)};
            }
    }
    int red = 0, blue = 0;
    RECT place = {Paper::Side, Paper::Side, 0, 0};
};

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
        form.icons.add(halves(side));
        form.shows.clear();
        form.shows.add({"icon", 2, {}, {}});
        form.picture.setPicture(halves(side));
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
        for (const auto& [control, around] :
             {std::pair<ui::Control*, RECT>{&form.shows, listed}, {&form.picture, inside}}) {
            const Paper paper;
            ask(*control, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(paper.context()), PRF_CLIENT | PRF_ERASEBKGND);
            const Seen seen(paper);
            EXPECT_EQ((std::vector{seen.red, seen.blue}), (std::vector{side * side / 4, side * side / 4}));
            EXPECT_EQ(seen.place.right - seen.place.left, side) << control->name();
            EXPECT_EQ(seen.place.left, (around.left + around.right - side) / 2) << control->name();
        }
    }
}

TEST(IconPixels, AFormDrawsItsPicturesAndLines) {
    win32::Desktop desktop(96);
    EveryControl form(desktop);
    form.show();
    const auto drawn = [&](const Paper& paper) {
        SendMessageA(windowOf(form), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(paper.context()), PRF_CLIENT);
    };
    const RECT place = {387, 7, 420, 40};
    const Paper nothing, icon, bitmap, cleared;
    drawn(nothing);
    EXPECT_EQ(nothing.at(place.left, place.top), White);
    form.image.setPicture(halves(32));
    drawn(icon);
    expectHalves(icon, place.left, place.top, 32);
    form.image.setPicture(plainBitmap());
    RECT asked = {}, common = {};
    EXPECT_TRUE(GetUpdateRect(windowOf(form), &asked, FALSE) && IntersectRect(&common, &asked, &place));
    drawn(bitmap);
    EXPECT_EQ(bitmap.at(place.left, place.top), RGB(0x80, 0x80, 0x80));
    form.image.clear();
    form.setLines({{3000, 1515, 300, 1515, ui::SystemColour::Shadow3D}});
    drawn(cleared);
    EXPECT_EQ(cleared.at(place.left, place.top), White);
    const COLORREF shadow = GetSysColor(COLOR_3DSHADOW);
    for (const auto& [x, y, colour] : {std::tuple{20, 101, shadow},
                                       {199, 101, shadow},
                                       {19, 101, White},
                                       {200, 101, White},
                                       {100, 100, White},
                                       {100, 102, White}})
        EXPECT_EQ(cleared.at(x, y), colour) << x << ", " << y;
}

}  // namespace
