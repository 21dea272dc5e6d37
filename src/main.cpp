// The program on Windows.
#include "app/basMain.h"
#include "app/frmMain.h"
#include "ui/Desktop.h"
#include "win32/NativePlatform.h"

int main() {
    win32::NativePlatform native;
    platform::Platform platform = native.platform();
    try {
        basMain::Running running;
        basMain::Main(platform, running);
        native.desktop.run();
    } catch (const ui::EndProgram&) {
        // The user ended the program from the error dialog: nothing is saved, nothing is asked.
    }
    return 0;
}
