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
    simulated::Machine empty;  // what else a machine has, with nothing in it
    platform::Platform platform{empty.registry, files,         empty.modules,  empty.memory,
                                empty.system,   empty.browser, empty.launcher, desktop};
    return command::run({platform, false}, console, {arguments + (count > 0 ? 1 : 0), arguments + count});
}
