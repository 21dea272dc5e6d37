// Exceptions and the system's callbacks.
//
// Nothing may be thrown through a frame of the system: it cannot be unwound. So every window procedure, dialog
// procedure and hook runs its body in `shielded`, which parks what was thrown; the calls of ours that made the system
// call back (`send`, the message loops, the system's dialogs) throw it again once the system has returned.
#pragma once

#include <type_traits>

#include "win32/WindowsHeaders.h"

namespace win32 {

// Keeps the exception now being handled. When one is parked already, the first one stays.
void park() noexcept;
void rethrowParked();

// Runs the body; when it throws, parks that and gives a value-initialized result.
template <class Body>
auto shielded(Body&& body) noexcept -> std::invoke_result_t<Body&> {
    try {
        return body();
    } catch (...) {
        park();
    }
    return std::invoke_result_t<Body&>();
}

// SendMessageA, and what a callback of ours threw meanwhile.
LRESULT send(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0);

}  // namespace win32
