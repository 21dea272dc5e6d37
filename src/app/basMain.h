// Start-up, and the few routines that several windows share.
#pragma once

#include <memory>

#include "app/Program.h"
#include "ui/Form.h"

namespace basMain {

// The program while it runs: its objects and its one modeless window. Empty when start-up ended without a window.
struct Running {
    std::unique_ptr<Program> program;
    std::unique_ptr<frmMain> window;

    Running();
    ~Running();
};

// Decides by the installed browser whether the program may run: only with major version 5 it goes on to StartNormal;
// versions below 5 and from 7 on, and no browser at all, get a message; version 6 ends without a word.
void Main(platform::Platform& platform, Running& running);
void StartNormal(platform::Platform& platform, Running& running);

// Routes every message of the form through WindowProc, and back.
void Hook(ui::Form& form);
void Unhook(ui::Form& form);
// Swallows the begin of a drag in a list (answer 1): the items of the zone list can never be dragged.
std::optional<std::intptr_t> WindowProc(const ui::WindowMessage& message);

// A two-tone horizontal separator: a shadow, and 20 twips below it a highlight that ends 5 twips earlier.
void EtchedLine(ui::Form& form, ui::Twips left, ui::Twips top, ui::Twips width);

}  // namespace basMain
