// Reports what the trap catches: shows it in the error dialog, which logs it.
#pragma once

#include <string>

#include "ui/Handler.h"
#include "ui/Picture.h"

namespace platform {
struct Platform;
}
namespace ui {
class Form;
}

namespace errors {

// What the error dialog works with, while the program runs.
struct Reporting {
    platform::Platform* platform = nullptr;
    ui::Form* mainWindow = nullptr;          // owns the dialog
    ui::Handler<ui::Picture()> exclamation;  // the dialog's picture; empty when it cannot be had
};
extern Reporting reporting;

// Makes this the trap's reporter, on `platform`.
void startReporting(platform::Platform& platform);
void stopReporting();

// True while a trapped error is being shown.
bool errorPending();

// Shows basErrors::Err in the error dialog, modal, owned by the main window. Err is the same afterwards. An error that
// occurs while the report is being made is dropped, and one that occurs while the dialog is open (in a timer, which
// would stack up dialogs) is only logged.
void report();

// Err and the place where it was trapped, as the dialog and the log show them.
struct Report {
    std::string module, procedure, line, number, description;
};
Report currentReport();

}  // namespace errors
