// The program without windows on a system that is no Windows: it reads exports.
#include "command/ConsoleDesktop.h"
#include "command/run.h"
#include "native/Console.h"
#include "native/Files.h"
#include "platform/Platform.h"
#include "simulated/Files.h"
#include "simulated/Memory.h"
#include "simulated/Modules.h"
#include "simulated/Registry.h"
#include "simulated/System.h"

int main(int count, char** arguments) {
    native::Console console;
    native::Files files;
    // Nothing of these is there, and they say so.
    simulated::Registry registry;
    simulated::Files noPrograms;
    simulated::Modules modules(noPrograms);
    simulated::Memory memory;
    simulated::System system;
    simulated::Browser browser;
    simulated::Launcher launcher;
    command::ConsoleDesktop desktop(console, false);
    platform::Platform platform{registry, files, modules, memory, system, browser, launcher, desktop};
    return command::run({platform, false}, console, {arguments + (count > 0 ? 1 : 0), arguments + count});
}
