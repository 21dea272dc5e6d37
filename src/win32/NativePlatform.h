// The real system, put together for an entry point.
#pragma once

#include "platform/Platform.h"
#include "win32/Desktop.h"
#include "win32/Files.h"
#include "win32/Memory.h"
#include "win32/Modules.h"
#include "win32/Registry.h"
#include "win32/System.h"

namespace win32 {

struct NativePlatform {
    Registry registry;
    Files files;
    Modules modules;
    Memory memory;
    System system;
    Browser browser;
    Launcher launcher;
    Desktop desktop;

    platform::Platform platform() { return {registry, files, modules, memory, system, browser, launcher, desktop}; }
};

}  // namespace win32
