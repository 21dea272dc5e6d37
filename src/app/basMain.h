// Start-up.
#pragma once

#include <memory>

#include "app/Application.h"

class frmMain;

namespace basMain {

// The program while it runs: its objects and its one modeless window. Empty when start-up ended without a window.
struct Running {
    std::unique_ptr<app::Application> application;
    std::unique_ptr<frmMain> window;

    Running();
    ~Running();
};

// Decides by the installed browser whether the program may run: only with major version 5 it goes on to StartNormal;
// versions below 5 and from 7 on, and no browser at all, get a message; version 6 ends without a word.
void Main(platform::Platform& platform, Running& running);
void StartNormal(platform::Platform& platform, Running& running);

}  // namespace basMain
