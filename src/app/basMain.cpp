#include "app/basMain.h"

#include "app/clsIEInfo.h"
#include "app/frmMain.h"
#include "errors/ErrorReporter.h"
#include "errors/messages.h"
#include "util/characters.h"
#include "util/numbers.h"
#include "util/procedure.h"
#include "util/trace.h"

namespace basMain {

Running::Running() = default;

// The window first: closing it still uses the program's objects.
Running::~Running() {
    window.reset();
}

void Main(platform::Platform& platform, Running& running) {
    util::readLeadBytes(platform.system);
    errors::startReporting(platform);  // an error in here has nobody else to show it
    procedure("basMain.Main", [&] {
        const clsIEInfo browser(platform);
        const bool available = browser.IsAvailable();
        const std::int32_t version = browser.Version();
        basErrors::ErrLine = " ";

        const auto warn = [&](const std::string& text) { errors::tell(platform, text); };
        if (!available) {
            warn("Internet Explorer is does not seem to be installed.  Please install Internet Explorer first.");
        } else if (version == 5) {
            StartNormal(platform, running);
        } else if (version < 5) {
            warn("Sorry, you need Internet Explorer version 5.x to continue.");
        } else if (version >= 7) {
            warn("This version of Tavimor might not work with Internet Explorer version " + util::toDecimal(version) +
                 ".x\r\n\r\nPlease check for an updated version of Tavimor.");
        }
        // Version 6 is meant to end here without a word.
    });
}

void StartNormal(platform::Platform& platform, Running& running) {
    procedure("basMain.StartNormal", [&] {
        running.application = std::make_unique<app::Application>(platform);
        running.window = std::make_unique<frmMain>(*running.application);
        running.window->load();
        running.window->show();
    });
}

}  // namespace basMain
