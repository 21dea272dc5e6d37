#include "win32/SystemError.h"

#include "platform/SystemError.h"
#include "win32/Modules.h"
#include "win32/WindowsHeaders.h"

namespace win32 {

void throwLastError() {
    const DWORD last = GetLastError();
    const platform::Result code = last == ERROR_SUCCESS ? DWORD{ERROR_NOT_ENOUGH_MEMORY} : last;  // some calls set none
    throw platform::SystemError(code, Modules().FormatMessageA(code));
}

}  // namespace win32
