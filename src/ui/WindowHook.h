// Lets an owner of a form see its window's messages before the form does.
#pragma once

#include <cstdint>
#include <optional>

#include "ui/Handler.h"

namespace ui {

// What a hook sees of a message on its way to a form's window procedure.
struct WindowMessage {
    unsigned message = 0;  // WM_...
    std::uintptr_t wParam = 0;
    std::uintptr_t lParam = 0;
    int notification = 0;  // the code in the NMHDR of a WM_NOTIFY, else 0
};
inline constexpr unsigned WmNotify = 78;   // WM_NOTIFY
inline constexpr int LvnBeginDrag = -109;  // LVN_BEGINDRAG

// Returns the answer to a message, or nothing to pass the message on.
using WindowHook = Handler<std::optional<std::intptr_t>(const WindowMessage&)>;

}  // namespace ui
