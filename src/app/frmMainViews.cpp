// The main window's two views, and what it keeps of its layout between runs.
#include "app/frmMain.h"
#include "util/Error.h"
#include "util/procedure.h"

namespace {

// The program's settings key, and the values in it.
constexpr const char* SettingsKey = "Software\\Pellweather Inc.\\Tavimor";
constexpr const char* SettingsPath = "HKEY_CURRENT_USER\\Software\\Pellweather Inc.\\Tavimor";
constexpr const char* MainHeight = "Main Height";
constexpr const char* FrameTop = "Frame Top";
constexpr const char* LogoTop = "Logo Top";
constexpr const char* View = "View";
constexpr std::uint32_t BasicView = 1, AdvancedView = 2;

}  // namespace

// Views ---------------------------------------------------------------------------------------------------------

void frmMain::mnuViewAdv_Click() {
    procedure("frmMain.mnuViewAdv_Click", [&] {
        zzzfraInfo.setVisible(true);
        zzzpicLogo.setTop(zzzfraInfo.top() + zzzfraInfo.height() + FrameToLogo);
        setHeight(heightFor(zzzpicLogo.top(), zzzpicLogo.height()));
        context_.registry.goTo(SettingsPath);
        WriteLength(MainHeight, height());
        WriteLength(FrameTop, zzzfraInfo.top());
        WriteLength(LogoTop, zzzpicLogo.top());
        context_.registry.writeNumber(View, AdvancedView);
        ShowView(AdvancedView);
    });
}

void frmMain::mnuViewBasic_Click() {
    procedure("frmMain.mnuViewBasic_Click", [&] {
        zzzpicLogo.setTop(zzzfraInfo.top());
        setHeight(heightFor(zzzpicLogo.top(), zzzpicLogo.height()));
        context_.registry.goTo(SettingsPath);
        WriteLength(MainHeight, height());
        WriteLength(LogoTop, zzzpicLogo.top());
        context_.registry.writeNumber(View, BasicView);
        ShowView(BasicView);
    });
}

// The view in force is the one whose menu item is disabled. Any other number changes nothing.
void frmMain::ShowView(std::uint32_t view) {
    if (view != BasicView && view != AdvancedView) return;
    if (view == BasicView) zzzfraInfo.setVisible(false);
    mnuViewBasic.setEnabled(view != BasicView);
    mnuViewAdv.setEnabled(view != AdvancedView);
}

// Saved settings ------------------------------------------------------------------------------------------------

void frmMain::SetFormAttributes() {
    procedure("frmMain.SetFormAttributes", [&] {
        clsRegistry& registry = context_.registry;
        const bool firstRun = !registry.IsValidKey(platform::HKeyCurrentUser, SettingsKey);
        registry.goTo("HKEY_CURRENT_USER");
        if (firstRun) registry.MakeKey(SettingsKey);
        registry.goTo(SettingsPath);
        if (firstRun) WriteFirstAttributes();
        ReadAttributes();
        if (firstRun) return;  // the menus keep their designed state
        if (const NumberReading view = registry.readNumber(View); view.present()) ShowView(view.number);
    });
}

void frmMain::WriteFirstAttributes() {
    WriteLength(MainHeight, height());
    WriteLength(FrameTop, zzzfraInfo.top());
    WriteLength(LogoTop, zzzpicLogo.top());
    context_.registry.writeNumber(View, AdvancedView);
}

void frmMain::ReadAttributes() {
    setHeight(ReadLength(MainHeight));
    zzzfraInfo.setTop(ReadLength(FrameTop));
    zzzpicLogo.setTop(ReadLength(LogoTop));
}

ui::Twips frmMain::ReadLength(const char* name) {
    constexpr std::uint32_t Tallest = 32767;  // what a window may measure in twips
    const NumberReading length = context_.registry.readNumber(name);
    if (!length.present() || length.number > Tallest)
        throw util::Error(util::NumberNotANumber, "frmMain",
                          std::string("The saved setting \"") + name + "\" is missing or is not a length.");
    return static_cast<ui::Twips>(length.number);
}

void frmMain::WriteLength(const char* name, ui::Twips length) {
    context_.registry.writeNumber(name, static_cast<std::uint32_t>(length));
}
