// The main window's two views, and what it keeps of its layout between runs.
#include <algorithm>

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
constexpr const char* MainLeft = "Main Left";
constexpr const char* MainTop = "Main Top";
constexpr const char* MainWidth = "Main Width";
constexpr const char* ListHeight = "List Height";
constexpr std::uint32_t BasicView = 1, AdvancedView = 2;
constexpr std::uint32_t Tallest = 32767;  // what a window may measure in twips

}  // namespace

// Views ---------------------------------------------------------------------------------------------------------

void frmMain::mnuViewAdv_Click() {
    procedure("frmMain.mnuViewAdv_Click", [&] { ChangeView(AdvancedView); });
}

void frmMain::mnuViewBasic_Click() {
    procedure("frmMain.mnuViewBasic_Click", [&] { ChangeView(BasicView); });
}

// Without the frame the logo takes its place.
void frmMain::ChangeView(std::uint32_t view) {
    const bool advanced = view == AdvancedView;
    if (maximized()) setHeight(place().height);
    if (advanced) zzzfraInfo.setVisible(true);
    zzzpicLogo.setTop(zzzfraInfo.top() + (advanced ? zzzfraInfo.height() + FrameToLogo : 0));
    const ui::Twips height = heightFor(zzzpicLogo.top(), zzzpicLogo.height());
    setSmallestHeight(0);
    setHeight(height);
    GiveListTheRest();
    context_.registry.goTo(SettingsPath);
    WriteLength(MainHeight, this->height());
    if (advanced) WriteLength(FrameTop, zzzfraInfo.top());
    WriteLength(LogoTop, zzzpicLogo.top());
    context_.registry.writeNumber(View, view);
    ShowView(view);
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
        ReadPlace();
    });
}

void frmMain::WriteFirstAttributes() {
    WriteLength(MainHeight, height());
    WriteLength(FrameTop, zzzfraInfo.top());
    WriteLength(LogoTop, zzzpicLogo.top());
    context_.registry.writeNumber(View, AdvancedView);
}

void frmMain::ReadAttributes() {
    const ui::Twips height = ReadLength(MainHeight), frameTop = ReadLength(FrameTop), logoTop = ReadLength(LogoTop);
    setHeight(height);
    StretchList(frameTop - zzzfraInfo.top());
    zzzfraInfo.setTop(frameTop);
    zzzpicLogo.setTop(logoTop);
    LimitHeight();
    if (this->height() < height) GiveListTheRest();  // the screen is too small
}

// Where the window stood when it was closed, and how large it was then.
void frmMain::ReadPlace() {
    clsRegistry& registry = context_.registry;
    const NumberReading left = registry.readNumber(MainLeft), top = registry.readNumber(MainTop),
                        width = registry.readNumber(MainWidth), list = registry.readNumber(ListHeight);
    if (!left.present() || !top.present() || !width.present() || !list.present()) return;
    StretchList(static_cast<ui::Twips>(std::min(list.number, Tallest)) - lvwZones.height());
    setHeight(heightFor(zzzpicLogo.top(), zzzpicLogo.height()));
    setPlace(static_cast<ui::Twips>(left.number), static_cast<ui::Twips>(top.number),
             static_cast<ui::Twips>(std::min(width.number, Tallest)));
    GiveListTheRest();  // of a screen that is smaller now
}

void frmMain::WritePlace() {
    const ui::Bounds& at = place();
    if (at.width == 0 || context_.registry.goTo(SettingsPath) != Found::Present) return;
    WriteLength(MainLeft, at.left);
    WriteLength(MainTop, at.top);
    WriteLength(MainWidth, at.width);
    WriteLength(ListHeight, lvwZones.height() - height() + at.height);  // not the one of a maximised window
}

ui::Twips frmMain::ReadLength(const char* name) {
    const NumberReading length = context_.registry.readNumber(name);
    if (!length.present() || length.number > Tallest)
        throw util::Error(util::NumberNotANumber, "frmMain",
                          std::string("The saved setting \"") + name + "\" is missing or is not a length.");
    return static_cast<ui::Twips>(length.number);
}

void frmMain::WriteLength(const char* name, ui::Twips length) {
    context_.registry.writeNumber(name, static_cast<std::uint32_t>(length));
}
