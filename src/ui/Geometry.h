// Lengths and positions on a form, all in twips (1440 to the inch). Peers convert them to pixels by the screen's DPI.
#pragma once

namespace ui {

using Twips = int;
inline constexpr Twips TwipsPerInch = 1440;

constexpr int toPixels(Twips length, int pixelsPerInch) {
    // Rounded to the nearest pixel, halves away from zero, so that equal lengths stay equal.
    const long long scaled = static_cast<long long>(length) * pixelsPerInch;
    const long long half = TwipsPerInch / 2;
    return static_cast<int>((scaled + (scaled < 0 ? -half : half)) / TwipsPerInch);
}
constexpr Twips toTwips(int pixels, int pixelsPerInch) {
    return static_cast<Twips>(static_cast<long long>(pixels) * TwipsPerInch / pixelsPerInch);
}

struct Size {
    Twips width = 0, height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

struct Bounds {
    Twips left = 0, top = 0, width = 0, height = 0;

    constexpr Twips right() const { return left + width; }
    constexpr Twips bottom() const { return top + height; }
    friend bool operator==(const Bounds&, const Bounds&) = default;
};

// Lines drawn on a form's background, in the colours of the system's scheme.
enum class SystemColour { Shadow3D, Highlight3D };
struct Line {
    Twips left = 0, top = 0, right = 0, bottom = 0;
    SystemColour colour = SystemColour::Shadow3D;
    friend bool operator==(const Line&, const Line&) = default;
};

}  // namespace ui
