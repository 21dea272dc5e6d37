// The system's last error, thrown.
#pragma once

namespace win32 {

// Throws a platform::SystemError of the code that GetLastError gives.
[[noreturn]] void throwLastError();

}  // namespace win32
