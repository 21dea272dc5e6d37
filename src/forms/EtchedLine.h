// The line that separates the buttons of a window from what stands above them.
#pragma once

#include "ui/Form.h"

namespace basMain {

// A two-tone horizontal separator in place of the one before: a shadow, and 20 twips below it a highlight that ends 5
// twips earlier.
void EtchedLine(ui::Form& form, ui::Twips left, ui::Twips top, ui::Twips width);

}  // namespace basMain
