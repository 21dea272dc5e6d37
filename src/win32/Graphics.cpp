#include "win32/Graphics.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <optional>

namespace win32 {

namespace {

// The rows of a device-independent bitmap are padded to four bytes.
constexpr std::uint64_t rowBytes(std::uint64_t width, std::uint64_t bits) {
    return (width * bits + 31) / 32 * 4;
}

constexpr LONG LargestSide = 0x7FFF;

// A bitmap's header, and where its pixels begin and end.
struct Layout {
    BITMAPINFOHEADER header;
    std::size_t pixels;
    std::uint64_t end;  // behind the last row
    std::uint64_t rows() const { return static_cast<std::uint64_t>(std::abs(header.biHeight)); }
};

// Nothing when the bytes are too few for what the header claims, so that drawing cannot read behind them. Compressed
// pixels tell their size only while being drawn: they count as damaged.
std::optional<Layout> layoutOf(std::span<const std::uint8_t> image) {
    Layout layout = {};
    BITMAPINFOHEADER& h = layout.header;
    if (image.size() < sizeof h) return std::nullopt;
    std::memcpy(&h, image.data(), sizeof h);
    if (h.biSize < sizeof h || h.biSize > image.size()) return std::nullopt;
    if (h.biWidth <= 0 || h.biWidth > LargestSide || h.biHeight == 0) return std::nullopt;
    if (h.biHeight > LargestSide || h.biHeight < -LargestSide) return std::nullopt;
    if (h.biCompression != BI_RGB && h.biCompression != BI_BITFIELDS) return std::nullopt;
    constexpr WORD depths[] = {1, 4, 8, 16, 24, 32};
    if (std::find(std::begin(depths), std::end(depths), h.biBitCount) == std::end(depths)) return std::nullopt;

    const std::uint64_t most = h.biBitCount <= 8 ? 1u << h.biBitCount : 0;
    const std::uint64_t colours = h.biClrUsed ? h.biClrUsed : most;
    if (colours > 256) return std::nullopt;
    const std::uint64_t masks =
        h.biCompression == BI_BITFIELDS && h.biSize == sizeof h ? 3 * sizeof(DWORD) : std::uint64_t{0};
    const std::uint64_t pixels = h.biSize + masks + colours * sizeof(RGBQUAD);
    const auto width = static_cast<std::uint64_t>(h.biWidth);
    layout.end = pixels + rowBytes(width, h.biBitCount) * layout.rows();
    if (layout.end > image.size()) return std::nullopt;
    layout.pixels = static_cast<std::size_t>(pixels);
    return layout;
}

bool isPng(std::span<const std::uint8_t> image) {
    constexpr std::uint8_t mark[] = {0x89, 'P', 'N', 'G'};
    return image.size() > 24 && std::equal(std::begin(mark), std::end(mark), image.begin());
}

// An icon's header counts the rows of both its halves, the colours and the mask of one bit a pixel.
bool iconIsWhole(std::span<const std::uint8_t> image) {
    if (isPng(image)) return true;
    BITMAPINFOHEADER header = {};
    if (image.size() < sizeof header) return false;
    std::memcpy(&header, image.data(), sizeof header);
    if (header.biHeight <= 0 || header.biHeight % 2) return false;
    header.biHeight /= 2;
    std::basic_string<std::uint8_t> colours(image.begin(), image.end());
    std::memcpy(colours.data(), &header, sizeof header);
    const auto layout = layoutOf(colours);
    // Pixels of 32 bits say themselves how much is seen of them, and some icons spare the mask.
    const std::uint64_t mask = header.biBitCount == 32 ? 0 : rowBytes(static_cast<std::uint64_t>(header.biWidth), 1);
    return layout && layout->end + mask * layout->rows() <= image.size();
}

const ui::Picture::Kind IconKind = ui::Picture::Kind::Icon;

// A square bitmap like the screen's, and a context that draws on it.
struct Canvas {
    explicit Canvas(int size)
        : bitmap(CreateCompatibleBitmap(ScreenContext(), size, size)), context(CreateCompatibleDC(nullptr)) {}
    Bitmap bitmap;
    MemoryContext context;
};

void addBlank(HIMAGELIST images, int size) {
    const Canvas colours(size);
    {
        const Selected selected(colours.context.get(), colours.bitmap.get());
        PatBlt(colours.context.get(), 0, 0, size, size, BLACKNESS);
    }
    const std::basic_string<std::uint8_t> transparent(static_cast<std::size_t>(size) * ((size + 15) / 16 * 2), 0xFF);
    const Bitmap mask(CreateBitmap(size, size, 1, 1, transparent.data()));
    ImageList_Add(images, colours.bitmap.get(), mask.get());
}

// From the icon's own bitmaps where it has both: the library would make a second icon of it first.
bool addIcon(HIMAGELIST images, HICON icon) {
    ICONINFO parts = {};
    if (GetIconInfo(icon, &parts)) {
        const Bitmap colours(parts.hbmColor), mask(parts.hbmMask);
        if (colours && ImageList_Add(images, colours.get(), mask.get()) >= 0) return true;
    }
    return ImageList_ReplaceIcon(images, -1, icon) >= 0;
}

}  // namespace

Icon makeIcon(const ui::Picture& picture, int width, int height) {
    const auto image = picture.image();
    if (picture.empty() || picture.kind() != IconKind || !iconIsWhole(image)) return Icon();
    constexpr DWORD version = 0x00030000;  // the only version of the format there is
    return Icon(CreateIconFromResourceEx(const_cast<BYTE*>(image.data()), static_cast<DWORD>(image.size()), TRUE,
                                         version, width, height, LR_DEFAULTCOLOR));
}

SIZE bitmapSize(const ui::Picture& picture) {
    if (picture.empty() || picture.kind() == IconKind) return {0, 0};
    const auto layout = layoutOf(picture.image());
    return layout ? SIZE{layout->header.biWidth, static_cast<LONG>(layout->rows())} : SIZE{0, 0};
}

void drawBitmap(HDC context, const RECT& target, const ui::Picture& picture) {
    const SIZE size = bitmapSize(picture);
    if (!size.cx) return;
    const auto image = picture.image();
    SetStretchBltMode(context, COLORONCOLOR);
    StretchDIBits(context, target.left, target.top, target.right - target.left, target.bottom - target.top, 0, 0,
                  size.cx, size.cy, image.data() + layoutOf(image)->pixels,
                  reinterpret_cast<const BITMAPINFO*>(image.data()), DIB_RGB_COLORS, SRCCOPY);
}

void PictureDrawing::draw(HDC context, const RECT& place, const ui::Picture& picture, const Screen& screen) {
    constexpr int IconSize = 32;  // pixels on every screen
    if (of_.identity() != picture.identity()) {
        icon_ = makeIcon(picture, IconSize, IconSize);
        of_ = picture;
    }
    if (icon_) {
        const LONG left = place.left + std::max(0L, (place.right - place.left - IconSize) / 2);
        const LONG top = place.top + std::max(0L, (place.bottom - place.top - IconSize) / 2);
        DrawIconEx(context, left, top, icon_.get(), IconSize, IconSize, 0, nullptr, DI_NORMAL);
    } else if (const SIZE size = bitmapSize(picture); size.cx) {
        const RECT area = {place.left, place.top, place.left + screen.scaled(size.cx),
                           place.top + screen.scaled(size.cy)};
        drawBitmap(context, area, picture);
    }
}

Images makeImages(int size) {
    // A list that grows copies all it holds: small steps are most of what thousands of pictures take.
    return Images(ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, 8, 64));
}

void addPicture(HIMAGELIST images, int size, const ui::Picture& picture) {
    if (const Icon icon = makeIcon(picture, size, size)) {
        if (addIcon(images, icon.get())) return;
    } else if (bitmapSize(picture).cx) {
        const Canvas canvas(size);
        {
            const Selected selected(canvas.context.get(), canvas.bitmap.get());
            drawBitmap(canvas.context.get(), {0, 0, size, size}, picture);
        }
        if (ImageList_Add(images, canvas.bitmap.get(), nullptr) >= 0) return;
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
    ImageList_Add(images, canvas.bitmap.get(), nullptr);
}

}  // namespace win32
