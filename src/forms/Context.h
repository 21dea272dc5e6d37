// What every window is given.
#pragma once

#include <string>

#include "platform/Platform.h"
#include "registry/clsRegistry.h"

namespace forms {

// What the other windows ask of the main window.
class MainWindow {
public:
    virtual ~MainWindow() = default;
    // Reads the zones again: some have been added, renamed or deleted.
    virtual void RebuildList() = 0;
    // Reads the "At a glance" values of a zone again: its flags or levels have changed.
    virtual void UpdateLabels(const std::string& zone) = 0;
    // Also reads the zones again, but reports nothing when there are none or only some.
    virtual void ReloadAsItIs() = 0;
};

struct Context {
    explicit Context(platform::Platform& system) : platform(system), registry(system) {}
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    platform::Platform& platform;
    clsRegistry registry;              // the session that all windows share
    MainWindow* mainWindow = nullptr;  // while it is loaded
};

}  // namespace forms
