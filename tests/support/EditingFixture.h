// A user of a machine with everything that the program edits, at the main window.
#pragma once

#include "support/User.h"

struct EditingFixture : User {
    EditingFixture() {
        system.seedAll();
        window = &User::window();
    }
    frmMain* window = nullptr;
};
