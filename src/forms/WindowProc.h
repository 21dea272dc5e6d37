// A procedure that gets a window's messages before the window's own, so that the items of a zone list cannot be
// dragged.
#pragma once

#include <cstdint>
#include <optional>

#include "ui/Form.h"
#include "ui/WindowHook.h"

namespace basMain {

// Routes every message of the form through WindowProc, and back.
void Hook(ui::Form& form);
void Unhook(ui::Form& form);
// Swallows the start of a drag in a list (answer 1), and passes everything else on.
std::optional<std::intptr_t> WindowProc(const ui::WindowMessage& message);

}  // namespace basMain
