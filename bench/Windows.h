// The measures on the real system, one file each.
#pragma once

#include "app/Application.h"
#include "bench/Rows.h"
#include "win32/NativePlatform.h"

namespace bench {

struct Machine {
    win32::NativePlatform native;
    platform::Platform platform = native.platform();
    app::Application program{platform};

    // Windows as the user has them handle their messages.
    void settle() { native.desktop.doEvents(); }
};

// Zones numbered from 0 on, with nothing but a name and numbers that are settings; others go.
void seedZones(int zones, int settings);
void forgetZones();

void backups(Machine& machine);   // writing and listing them
void zoneList(Machine& machine);  // filling the main window's list
void iconSelector(Machine& machine);
void dialogs(Machine& machine);  // opening each, and making the main window wider
void start();                    // of the program
// Prints the seconds that the registry editor takes to import a file.
void importing(Machine& machine, const std::string& file);

}  // namespace bench
