// Exceptions and the system's callbacks.
//
// No exception may pass through the system's stack frames, which cannot be unwound. So every window procedure, dialog
// procedure and hook runs its body in `shielded`, which parks the exception; the functions through which the system was
// called (`send`, the message loops, the system's dialogs) rethrow it once the system has returned.
#pragma once

#include "win32/WindowsHeaders.h"

namespace win32 {

// Keeps the exception that is being handled, unless one is parked already.
void park() noexcept;
void rethrowParked();

// Runs the body; when it throws, parks that and answers false.
template <class Body>
bool shielded(Body&& body) noexcept {
    try {
        body();
        return true;
    } catch (...) {
        park();
        return false;
    }
}

// SendMessageA; rethrows what a callback threw meanwhile.
LRESULT send(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0);

}  // namespace win32
