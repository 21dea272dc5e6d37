// Functions of system libraries that are loaded when they are first needed: loading those libraries with the program
// would slow down every start.
#pragma once

#include <cstring>

#include "win32/WindowsHeaders.h"

namespace win32 {

// A function that a loaded library exports; null when there is no such function.
template <class Function>
Function exported(HMODULE library, const char* function) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(library ? GetProcAddress(library, function) : nullptr));
}

// A function of a library in the system folder; null when there is no such function, and GetLastError tells why. The
// library is never freed: some of the shell's start threads of their own.
template <class Function>
Function delayLoaded(const char* library, const char* function) {
    // By its full path, so that no file of that name next to the program is ever run.
    char path[MAX_PATH + 32] = "";
    const UINT length = GetSystemDirectoryA(path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return nullptr;
    std::strcat(std::strcat(path, "\\"), library);
    return exported<Function>(LoadLibraryA(path), function);
}

}  // namespace win32
