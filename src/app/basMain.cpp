#include "app/basMain.h"

#include "app/clsIEInfo.h"
#include "app/frmMain.h"
#include "errors/basErrors.h"
#include "icons/ExtractIcon.h"
#include "ui/Desktop.h"
#include "util/basSystem.h"

Program::Program(platform::Platform& system) : platform(system), registry(system, strings) {
    basErrors::reporting.platform = &platform;
    basErrors::reporting.exclamation = [this] {
        return basMain::LoadPicture(*this, basSystem::ProgramFile(platform) + ",2", 32);
    };
}

Program::~Program() {
    basErrors::reporting = {};
}

namespace basMain {

Running::Running() = default;

// The window first: closing it still uses the program's objects.
Running::~Running() {
    window.reset();
}

void Main(platform::Platform& platform, Running& running) {
    basErrors::reporting.platform = &platform;  // an error in here has nobody else to show it
    procedure("basMain.Main", [&] {
        const clsIEInfo browser(platform);
        const bool available = browser.IsAvailable();
        const std::int32_t version = browser.Version();
        basErrors::ErrLine = " ";

        const auto warn = [&](const std::string& text) {
            platform.desktop.messageBox(text, AppTitle, ui::MessageStyle::Exclamation);
        };
        if (!available) {
            warn("Internet Explorer is does not seem to be installed.  Please install Internet Explorer first.");
        } else if (version == 5) {
            StartNormal(platform, running);
        } else if (version < 5) {
            warn("Sorry, you need Internet Explorer version 5.x to continue.");
        } else if (version >= 7) {
            warn("This version of Tavimor might not work with Internet Explorer version " + std::to_string(version) +
                 ".x\r\n\r\nPlease check for an updated version of Tavimor.");
        }
        // Version 6 is meant to end here without a word.
    });
}

void StartNormal(platform::Platform& platform, Running& running) {
    procedure("basMain.StartNormal", [&] {
        running.program = std::make_unique<Program>(platform);
        running.window = std::make_unique<frmMain>(*running.program);
        running.window->load();
        running.window->show();
    });
}

void Hook(ui::Form& form) {
    form.setHook(WindowProc);
}

void Unhook(ui::Form& form) {
    form.setHook({});
}

std::optional<std::intptr_t> WindowProc(const ui::WindowMessage& message) {
    basErrors::TracePush("basMain.WindowProc");
    // A swallowed drag leaves the name on the trace: a later stack dump tells that somebody tried.
    if (message.message == ui::WmNotify && message.notification == ui::LvnBeginDrag) return 1;
    basErrors::TracePop();
    return std::nullopt;
}

void EtchedLine(ui::Form& form, ui::Twips left, ui::Twips top, ui::Twips width) {
    procedure("basMain.EtchedLine", [&] {
        form.drawLine({left, top, left + width, top, ui::SystemColour::Shadow3D});
        form.drawLine({left, top + 20, left + width - 5, top + 20, ui::SystemColour::Highlight3D});
    });
}

}  // namespace basMain
