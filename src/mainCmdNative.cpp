// The program without windows on a system that is no Windows: it reads exports.
#include "command/ConsoleDesktop.h"
#include "command/run.h"
#include "native/Console.h"
#include "native/Files.h"
#include "simulated/Machine.h"

int main(int count, char** arguments) {
    native::Console console;
    native::Files files;
    command::ConsoleDesktop desktop(console, false);
    simulated::Machine none;  // nothing of the rest is there, and it says so
    platform::Platform platform{none.registry, files,        none.modules,  none.memory,
                                none.system,   none.browser, none.launcher, desktop};
    return command::run({platform, false}, console, {arguments + (count > 0 ? 1 : 0), arguments + count});
}
