// Linked into the 32-bit program in place of what the compiler's own libraries would bring: functions that old
// versions of Windows have only as stubs that fail, and code the program never needs.
#include <windows.h>

#include <cstdlib>

namespace {

// The compiler's locks ask for the wide function and pass no name.
HANDLE WINAPI createSemaphore(SECURITY_ATTRIBUTES* security, LONG initial, LONG maximum, const wchar_t*) {
    return CreateSemaphoreA(security, initial, maximum, nullptr);
}

}  // namespace

extern "C" {
// The slot that a call of CreateSemaphoreW goes through; ours is found before the import library's.
extern const void* const createSemaphoreSlot asm("__imp__CreateSemaphoreW@16");
const void* const createSemaphoreSlot = reinterpret_cast<const void*>(&createSemaphore);
}

// What an exception nobody caught ends in. The library's own prints its type, which takes 50 KB of code.
namespace __gnu_cxx {
void __verbose_terminate_handler();
void __verbose_terminate_handler() {
    std::abort();
}
}  // namespace __gnu_cxx
