// Lengths that the program's windows have in common.
#pragma once

#include "ui/Geometry.h"

namespace ui::layout {

inline constexpr Twips Margin = 120;
inline constexpr Twips ButtonWidth = 1260, ButtonHeight = 375;
inline constexpr Twips LabelHeight = 225;  // one line of text
inline constexpr Twips BoxHeight = 285;    // a text box of one line

// A line of text at the left of a button, half-way up.
constexpr Bounds besideButton(Twips left, Twips buttonLeft, Twips buttonTop) {
    return {left, buttonTop + (ButtonHeight - LabelHeight) / 2, buttonLeft - Margin - left, LabelHeight};
}

}  // namespace ui::layout
