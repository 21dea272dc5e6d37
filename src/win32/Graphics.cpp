#include "win32/Graphics.h"

#include <algorithm>

#include "platform/ImageLayout.h"

namespace win32 {

namespace {

const ui::Picture::Kind IconKind = ui::Picture::Kind::Icon;

// Windows does from version 6.0 on, Wine always. Older ones take a PNG for the header of a bitmap.
bool systemDrawsPng() {
    static const bool draws = [] {
        OSVERSIONINFOA version = {};
        version.dwOSVersionInfoSize = sizeof version;
        if (GetVersionExA(&version) && version.dwMajorVersion >= 6) return true;
        const HMODULE kernel = GetModuleHandleA("ntdll.dll");
        return kernel && GetProcAddress(kernel, "wine_get_version");
    }();
    return draws;
}

// A square bitmap like the screen's, and a context that draws on it.
struct Canvas {
    explicit Canvas(int size)
        : bitmap(CreateCompatibleBitmap(ScreenContext(), size, size)), context(CreateCompatibleDC(nullptr)) {}
    Bitmap bitmap;
    MemoryContext context;
};

// The colours of a bitmap's table, for a screen of 256 colours, which would show the nearest of its own twenty; else
// none.
Palette makePalette(HDC context, platform::ByteSpan bitmap, const platform::ImageLayout& layout) {
    if (layout.bits > 8 || !(GetDeviceCaps(context, RASTERCAPS) & RC_PALETTE)) return Palette();
    const auto& header = *reinterpret_cast<const BITMAPINFOHEADER*>(bitmap.data());
    struct {
        WORD version = 0x300, count = 0;
        PALETTEENTRY entries[256] = {};
    } colours;
    for (std::size_t at = header.biSize; at + 4 <= layout.pixels && colours.count < 256; at += 4)
        colours.entries[colours.count++] = {bitmap[at + 2], bitmap[at + 1], bitmap[at], 0};
    return Palette(CreatePalette(reinterpret_cast<const LOGPALETTE*>(&colours)));
}

// The mask of a whole place in an image list: nothing of it is seen, or all.
Bitmap makeMask(int size, bool isSeen) {
    const platform::Bytes bits(static_cast<std::size_t>(size) * ((size + 15) / 16 * 2), isSeen ? 0 : 0xFF);
    return Bitmap(CreateBitmap(size, size, 1, 1, bits.data()));
}

void addBlank(HIMAGELIST images, int size) {
    const Canvas colours(size);
    {
        const Selected selected(colours.context.get(), colours.bitmap.get());
        PatBlt(colours.context.get(), 0, 0, size, size, BLACKNESS);
    }
    ImageList_Add(images, colours.bitmap.get(), makeMask(size, false).get());
}

// From the icon's own bitmaps where it has both: the library would make a second icon of it first.
bool addWhole(HIMAGELIST images, HICON icon) {
    ICONINFO parts = {};
    if (GetIconInfo(icon, &parts)) {
        const Bitmap colours(parts.hbmColor), mask(parts.hbmMask);
        if (colours && ImageList_Add(images, colours.get(), mask.get()) >= 0) return true;
    }
    return ImageList_ReplaceIcon(images, -1, icon) >= 0;
}

// In the middle of its place, with nothing around it.
bool addCentred(HIMAGELIST images, int size, const SizedIcon& icon) {
    const int left = (size - icon.size.cx) / 2, top = (size - icon.size.cy) / 2;
    const Canvas colours(size);
    const Bitmap mask = makeMask(size, false);
    {
        const Selected drawing(colours.context.get(), colours.bitmap.get());
        PatBlt(colours.context.get(), 0, 0, size, size, BLACKNESS);
        DrawIconEx(colours.context.get(), left, top, icon.icon.get(), icon.size.cx, icon.size.cy, 0, nullptr, DI_IMAGE);
        const MemoryContext context(CreateCompatibleDC(nullptr));
        const Selected masking(context.get(), mask.get());
        DrawIconEx(context.get(), left, top, icon.icon.get(), icon.size.cx, icon.size.cy, 0, nullptr, DI_MASK);
    }
    return ImageList_Add(images, colours.bitmap.get(), mask.get()) >= 0;
}

}  // namespace

Icon makeIcon(platform::ByteSpan image, int width, int height) {
    const auto layout = platform::iconLayout(image, systemDrawsPng());
    if (!layout) return Icon();
    platform::Bytes whole = platform::withMask(image, *layout);
    constexpr DWORD version = 0x00030000;  // the only version of the format there is
    return Icon(CreateIconFromResourceEx(whole.data(), static_cast<DWORD>(whole.size()), TRUE, version, width, height,
                                         LR_DEFAULTCOLOR));
}

Icon makeIcon(const ui::Picture& picture, int width, int height) {
    return picture.kind() == IconKind ? makeIcon(picture.image(), width, height) : Icon();
}

SizedIcon makeIcon(const ui::Picture& picture, int room) {
    const auto layout =
        picture.kind() == IconKind ? platform::iconLayout(picture.image(), systemDrawsPng()) : std::nullopt;
    if (!layout) return {};
    const platform::ImageSize size = platform::sizeIn(*layout, room);
    return {makeIcon(picture.image(), size.width, size.height), {size.width, size.height}};
}

SIZE bitmapSize(const ui::Picture& picture) {
    if (picture.empty() || picture.kind() == IconKind) return {0, 0};
    const auto layout = platform::bitmapLayout(picture.image());
    return layout ? SIZE{layout->width, layout->height} : SIZE{0, 0};
}

void drawBitmap(HDC context, const RECT& target, const ui::Picture& picture) {
    const auto image = picture.image();
    const auto layout = picture.kind() == IconKind ? std::nullopt : platform::bitmapLayout(image);
    if (!layout) return;
    const Palette palette = makePalette(context, image, *layout);
    const HPALETTE before = palette ? SelectPalette(context, palette.get(), FALSE) : nullptr;
    if (palette) RealizePalette(context);
    SetStretchBltMode(context, COLORONCOLOR);
    StretchDIBits(context, target.left, target.top, target.right - target.left, target.bottom - target.top, 0, 0,
                  layout->width, layout->height, image.data() + layout->pixels,
                  reinterpret_cast<const BITMAPINFO*>(image.data()), DIB_RGB_COLORS, SRCCOPY);
    if (before) SelectPalette(context, before, FALSE);
}

RECT PictureDrawing::extent(const RECT& place, const ui::Picture& picture, const Screen& screen) {
    constexpr int IconSize = 32;  // pixels at 96 to the inch
    if (of_.identity() != picture.identity()) {
        icon_ = makeIcon(picture, screen.scaled(IconSize));
        of_ = picture;
    }
    if (icon_.icon) {
        const SIZE size = icon_.size;
        const LONG left = place.left + std::max(0L, (place.right - place.left - size.cx) / 2);
        const LONG top = place.top + std::max(0L, (place.bottom - place.top - size.cy) / 2);
        return {left, top, left + size.cx, top + size.cy};
    }
    const SIZE size = bitmapSize(picture);
    const LONG height = place.bottom - place.top;
    const LONG width = size.cy ? MulDiv(size.cx, height, size.cy) : 0;
    return {place.left, place.top, std::min(place.right, place.left + width), place.top + (width ? height : 0)};
}

void PictureDrawing::draw(HDC context, const RECT& place, const ui::Picture& picture, const Screen& screen) {
    const RECT area = extent(place, picture, screen);
    if (icon_.icon) {
        DrawIconEx(context, area.left, area.top, icon_.icon.get(), area.right - area.left, area.bottom - area.top, 0,
                   nullptr, DI_NORMAL);
    } else {
        drawBitmap(context, area, picture);
    }
}

Images makeImages(int size) {
    // A list that grows copies all it holds: small steps are most of what thousands of pictures take.
    return Images(ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, 8, 64));
}

void addPicture(HIMAGELIST images, int size, const ui::Picture& picture) {
    if (const SizedIcon icon = makeIcon(picture, size); icon.icon) {
        const bool fills = icon.size.cx == size && icon.size.cy == size;
        if (fills ? addWhole(images, icon.icon.get()) : addCentred(images, size, icon)) return;
    } else if (bitmapSize(picture).cx) {
        const Canvas canvas(size);
        {
            const Selected selected(canvas.context.get(), canvas.bitmap.get());
            drawBitmap(canvas.context.get(), {0, 0, size, size}, picture);
        }
        if (ImageList_Add(images, canvas.bitmap.get(), makeMask(size, true).get()) >= 0) return;
    }
    addBlank(images, size);
}

void addOptionButton(HIMAGELIST images, int size, int diameter, bool selected) {
    const Canvas canvas(size);
    {
        const Selected drawing(canvas.context.get(), canvas.bitmap.get());
        const RECT all = {0, 0, size, size};
        FillRect(canvas.context.get(), &all, GetSysColorBrush(COLOR_WINDOW));
        const int margin = (size - diameter) / 2;
        RECT button = {margin, margin, margin + diameter, margin + diameter};
        DrawFrameControl(canvas.context.get(), &button, DFC_BUTTON,
                         DFCS_BUTTONRADIO | (selected ? static_cast<UINT>(DFCS_CHECKED) : 0));
    }
    ImageList_Add(images, canvas.bitmap.get(), makeMask(size, true).get());
}

}  // namespace win32
