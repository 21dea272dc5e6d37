// The program without windows: one command, then its exit code.
#pragma once

#include <string>
#include <vector>

namespace platform {
struct Platform;
class Console;
}  // namespace platform

namespace command {

enum ExitCode : int { NothingDiffers = 0, Done = 0, SomethingDiffers = 1, Failed = 2 };

// `arguments` without the program's name. `platform` is the machine with its registry; without one, on systems that are
// no Windows, only exports can be read. What the program asks or tells goes to the console.
struct Machine {
    platform::Platform& platform;
    bool hasRegistry = true;
};
int run(Machine machine, platform::Console& console, const std::vector<std::string>& arguments);

}  // namespace command
