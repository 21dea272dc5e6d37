#include "win32/Callbacks.h"

#include <exception>
#include <utility>

namespace win32 {

namespace {
std::exception_ptr parked;  // the program has one thread
}

void park() noexcept {
    if (!parked) parked = std::current_exception();
}

void rethrowParked() {
    if (parked) std::rethrow_exception(std::exchange(parked, nullptr));
}

LRESULT send(HWND window, UINT message, WPARAM w, LPARAM l) {
    const LRESULT result = SendMessageA(window, message, w, l);
    rethrowParked();
    return result;
}

}  // namespace win32
