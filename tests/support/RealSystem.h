// The services of the real system, for a test system that runs as a Windows program.
#pragma once

#include <memory>
#include <string>

#include "platform/Platform.h"
#include "simulated/Modules.h"
#include "ui/Desktop.h"

class RealSystem {
public:
    // Null where there is no real system.
    static std::unique_ptr<RealSystem> make();
    virtual ~RealSystem() = default;

    virtual platform::Platform platform() = 0;
    // A folder of its own for each test, which goes with it.
    virtual std::string folder() = 0;
    // Writes a program file that holds what `program` says, and lets it be found by its name alone.
    virtual void addProgram(const std::string& path, const simulated::ProgramFile& program) = 0;
};
