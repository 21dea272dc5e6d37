// The objects that live from start to end, handed to every window.
#pragma once

#include "platform/Platform.h"
#include "registry/clsRegistry.h"
#include "util/application.h"
#include "util/clsStrings.h"
#include "zones/zones.h"

class frmMain;

struct Program {
    explicit Program(platform::Platform& platform);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    platform::Platform& platform;
    clsStrings strings;
    clsRegistry registry;
    zones::Selection selection;
    frmMain* mainWindow = nullptr;  // while it is loaded
};
