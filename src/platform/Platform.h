// Everything the program may ask of the system, handed to it at start. There is no other way to system state.
#pragma once

#include "platform/Files.h"
#include "platform/Modules.h"
#include "platform/Registry.h"
#include "platform/System.h"

namespace ui {
class Desktop;
}

namespace platform {

struct Platform {
    Registry& registry;
    Files& files;
    Modules& modules;
    Memory& memory;
    System& system;
    Browser& browser;
    Launcher& launcher;
    ui::Desktop& desktop;
};

}  // namespace platform
