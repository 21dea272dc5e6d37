// A whole machine in memory: every service that the program may ask for, all of them empty.
#pragma once

#include "platform/Platform.h"
#include "simulated/Desktop.h"
#include "simulated/Files.h"
#include "simulated/Memory.h"
#include "simulated/Modules.h"
#include "simulated/Registry.h"
#include "simulated/System.h"

namespace simulated {

struct Machine {
    Registry registry;
    Files files;
    Modules modules{files};
    Memory memory;
    System system;
    Browser browser;
    Launcher launcher;
    Desktop screen;
    platform::Platform services{registry, files, modules, memory, system, browser, launcher, screen};

    Machine() = default;
    Machine(const Machine&) = delete;  // its services would be the other's
    Machine& operator=(const Machine&) = delete;
};

}  // namespace simulated
