// The services of the real system, for a test system that runs as a Windows program.
#pragma once

#include <memory>
#include <string>

#include "platform/Platform.h"
#include "simulated/Modules.h"
#include "simulated/System.h"
#include "ui/Desktop.h"

class RealSystem {
public:
    // Null where there is no real system. Tells the place and the clock of `told`, whose folder is then one of its own
    // that goes with it, and notes in `started` what it starts.
    static std::unique_ptr<RealSystem> make(simulated::System& told, simulated::Launcher& started);
    virtual ~RealSystem() = default;

    virtual platform::Platform platform() = 0;
    // Writes a program file that holds what `program` says, and lets it be found by its name alone.
    virtual void addProgram(const std::string& path, const simulated::ProgramFile& program) = 0;
};
