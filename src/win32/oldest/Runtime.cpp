// Replaces parts of the compiler's libraries in the 32-bit program: functions that old versions of Windows have only as
// stubs that fail, and code that the program does not need.
#include <windows.h>

#include <cstdlib>

namespace {

// The compiler's locks call the wide function, without a name.
HANDLE WINAPI createSemaphore(SECURITY_ATTRIBUTES* security, LONG initial, LONG maximum, const wchar_t*) {
    return CreateSemaphoreA(security, initial, maximum, nullptr);
}

}  // namespace

extern "C" {
// The pointer that calls of CreateSemaphoreW go through; this one is linked before the import library's.
extern const void* const createSemaphoreSlot asm("__imp__CreateSemaphoreW@16");
const void* const createSemaphoreSlot = reinterpret_cast<const void*>(&createSemaphore);
}

// Called for an exception that nobody catches. The library's own prints its type, which takes 50 KB of code.
namespace __gnu_cxx {
void __verbose_terminate_handler();
void __verbose_terminate_handler() {
    std::abort();
}
}  // namespace __gnu_cxx
