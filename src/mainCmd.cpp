// The program without windows on Windows.
#include "command/ConsoleDesktop.h"
#include "command/run.h"
#include "platform/Platform.h"
#include "win32/Console.h"
#include "win32/Files.h"
#include "win32/Memory.h"
#include "win32/Modules.h"
#include "win32/Registry.h"
#include "win32/System.h"

namespace {

// Backups, and what else names the program, speak of the one with windows.
class System : public win32::System {
public:
    std::string programName() override { return "Tavimor"; }
};

}  // namespace

int main(int count, char** arguments) {
    win32::Console console;
    win32::Registry registry;
    win32::Files files;
    win32::Modules modules;
    win32::Memory memory;
    System system;
    win32::Browser browser;
    win32::Launcher launcher;
    command::ConsoleDesktop desktop(console, false);
    platform::Platform platform{registry, files, modules, memory, system, browser, launcher, desktop};
    return command::run({platform, true}, console, {arguments + (count > 0 ? 1 : 0), arguments + count});
}
