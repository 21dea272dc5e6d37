// Functions of system libraries that are wanted now and then: loading those with the program makes each of its starts
// slower.
#pragma once

#include <cstring>

#include "win32/WindowsHeaders.h"

namespace win32 {

// The address of a function in a library of the system folder; null when there is no such function. What is loaded
// stays: the shell's libraries start threads of their own.
inline FARPROC laterAddress(const char* library, const char* function) {
    // By its full path, so that no file of that name beside the program is ever run.
    char path[MAX_PATH + 32] = "";
    const UINT length = GetSystemDirectoryA(path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return nullptr;
    std::strcat(std::strcat(path, "\\"), library);
    const HMODULE module = LoadLibraryA(path);
    return module ? GetProcAddress(module, function) : nullptr;
}

template <class Function>
Function laterFunction(const char* library, const char* function) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(laterAddress(library, function)));
}

}  // namespace win32
