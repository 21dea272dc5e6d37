// Lengths that the program's windows have in common.
#pragma once

#include "ui/Geometry.h"

namespace ui::layout {

inline constexpr Twips Margin = 120;
inline constexpr Twips ButtonWidth = 1215, ButtonHeight = 375;
inline constexpr Twips LabelHeight = 225;  // one line of text
inline constexpr Twips BoxHeight = 285;    // a text box of one line

}  // namespace ui::layout
