#include "editing/frmEdit.h"

#include <cstdint>

#include "editing/frmSecurity.h"
#include "errors/messages.h"
#include "forms/ZoneChange.h"
#include "forms/ZoneList.h"
#include "ui/Hourglass.h"
#include "ui/Layout.h"
#include "util/numbers.h"
#include "util/procedure.h"
#include "zones/Defaults.h"
#include "zones/Templates.h"

namespace {

constexpr const char* DefaultLevel = "[Default]";

// A page is shown or hidden by its position: inside the tab strip, or far off the form.
using namespace ui::layout;
constexpr ui::Twips PageLeft = 105, PageTop = 525, HiddenLeft = -10000;

constexpr ui::Twips Edge = 45;
constexpr ui::Bounds Tabs{PageLeft - Edge, Margin, EditPageSize.width + 2 * Edge,
                          PageTop - Margin + EditPageSize.height + Edge};
constexpr ui::Twips CloseTop = Tabs.bottom() + Margin;
constexpr ui::Size Client{Tabs.right() + PageLeft - Edge, CloseTop + ButtonHeight + Margin};

enum Page { GeneralTab = 1, FlagsTab, SecurityTab };
constexpr int PageCount = 3;
constexpr int HiddenFromBrowser = 5;  // the flag that the Internet zone is never given

}  // namespace

EditPages::EditPages(ui::Form& form) : ControlArray("Picture1") {
    for (int page = 0; page < PageCount; ++page)
        add(form, {HiddenLeft, PageTop, EditPageSize.width, EditPageSize.height});
}

frmEdit::frmEdit(forms::Context& context, std::string zone, std::string shownName)
    : Form(context.platform.desktop, Kind::Dialog, "frmEdit", "Edit Zone", Client),
      // ---- General | Flags | Security
      TabStrip1(*this, "TabStrip1", Tabs, {"General", "Flags", "Security"}),
      Picture1(*this),
      general(context, Picture1(0)),
      flags(Picture1(1)),
      levels(Picture1(2)),
      // ---- My Computer             [Close]
      lblZone(*this, "lblZone", besideButton(Tabs.left, Tabs.right() - ButtonWidth, CloseTop), ""),
      cmdClose(*this, "cmdClose", {Tabs.right() - ButtonWidth, CloseTop, ButtonWidth, ButtonHeight}, "Close"),
      context_(context),
      zone_(std::move(zone)) {
    lblZone.makeOneLine();
    ShowName(std::move(shownName));
    setCancelButton(cmdClose);
    ConnectEvents();
    ShowPage(GeneralTab);
}

void frmEdit::ConnectEvents() {
    TabStrip1.onClick = [this] { TabStrip1_Click(); };
    cmdClose.onClick = [this] { cmdClose_Click(); };
    for (const int i : {DefaultButton, ApplyButton}) {
        general.cmdGeneral(i).onClick = [this, i] { cmdGeneral_Click(i); };
        flags.cmdFlags(i).onClick = [this, i] { cmdFlags_Click(i); };
    }
    for (int i = 0; i < levels.cboSetting.size(); ++i) {
        levels.cboSetting(i).onClick = [this, i] { cboSetting_Click(i); };
        levels.cboSetting(i).onGotFocus = [this] { BindEnter(); };
        levels.cmdApply(i).onClick = [this, i] { cmdApply_Click(i); };
        levels.cmdApply(i).onGotFocus = [this] { BindEnter(); };
    }
    levels.cmdSecurity.onClick = [this] { cmdSecurity_Click(); };
    for (ui::Control* other : {static_cast<ui::Control*>(&TabStrip1), static_cast<ui::Control*>(&levels.cmdSecurity),
                               static_cast<ui::Control*>(&cmdClose)})
        other->onGotFocus = [this] { BindEnter(); };
}

void frmEdit::Form_Load() {
    procedure("frmEdit.Form_Load", [&] {
        RepairMyComputer();
        if (zone_ == "3") flags.chkProperties(HiddenFromBrowser).setEnabled(false);

        std::vector<std::string> offered;
        for (int i = 0; i < zones::OfferedLevels; ++i) offered.emplace_back(zones::Levels[i].name);
        levels.cboSetting(CurrentLevel).setItems(offered);
        offered.emplace_back(DefaultLevel);
        levels.cboSetting(RecommendedLevel).setItems(offered);
        levels.cboSetting(MinimumLevel).setItems(offered);

        ReadGeneral();
    });
}

// Whichever zone is edited. A lowest level of 0 is none that the browser offers. The user asked for nothing here, and
// is not told when it cannot be done.
void frmEdit::RepairMyComputer() {
    clsRegistry& registry = context_.registry;
    if (zones::goToZone(registry, "0") != Found::Present) return;
    const NumberReading minimum = registry.readNumber(zones::value::MinLevel);
    if (!minimum.present() || minimum.number != 0) return;
    constexpr std::uint32_t Low = 65536;
    registry.writeNumber(zones::value::MinLevel, Low);
    registry.writeNumber(zones::value::RecommendedLevel, Low);
}

void frmEdit::TabStrip1_Click() {
    procedure("frmEdit.TabStrip1_Click", [&] {
        const int page = TabStrip1.selected();
        // Keeps what the user has typed: only a page that could not be read is read again.
        if (page == GeneralTab && !general.reading.succeeded()) ReadGeneral();
        if (page == FlagsTab) GetFlags();
        if (page == SecurityTab) GetRecMinSettings();
        ShowPage(page);
    });
}

bool frmEdit::Form_KeyDown(ui::FormKey key) {
    if (key == ui::FormKey::Refresh) return false;
    const int step = key == ui::FormKey::NextPage ? 0 : PageCount - 2;
    TabStrip1.setFocus();  // which may be on the page that goes
    TabStrip1.choose((TabStrip1.selected() + step) % PageCount + 1);
    return true;
}

void frmEdit::ShowPage(int page) {
    for (int i = 0; i < Picture1.size(); ++i) Picture1(i).setLeft(i == page - 1 ? PageLeft : HiddenLeft);
    BindEnter();
}

// Enter applies the page. On that of the levels each box has an "Apply" of its own; without one of them Enter must not
// change a level that the user is not even looking at.
void frmEdit::BindEnter() {
    if (TabStrip1.selected() == GeneralTab) return setDefaultButton(general.cmdGeneral(ApplyButton));
    if (TabStrip1.selected() == FlagsTab) return setDefaultButton(flags.cmdFlags(ApplyButton));
    for (int i = 0; i < levels.cboSetting.size(); ++i)
        if (levels.cboSetting(i).focused()) return setDefaultButton(levels.cmdApply(i));
    setDefaultButton(cmdClose);
}

void frmEdit::cmdClose_Click() {
    procedure("frmEdit.cmdClose_Click", [&] { unload(); });
}

bool frmEdit::StillShown() {
    return forms::stillShown(context_, zone_, name_);
}

bool frmEdit::Save(util::FunctionRef<void()> write) {
    return forms::change(context_, zone_, [&] {
        zones::goToZone(context_.registry, zone_);
        write();
    });
}

void frmEdit::TellUnreadable(const char* values) {
    if (!forms::exists(context_, zone_)) return errors::tell(context_.platform, "This zone no longer exists.");
    errors::tell(context_.platform, std::string("The zone's ") + values + " could not be read, and cannot be saved.");
}

void frmEdit::ShowName(std::string name) {
    name_ = std::move(name);
    lblZone.setCaption(name_);
}

// General -------------------------------------------------------------------------------------------------------

void frmEdit::ReadGeneral() {
    const Found key = zones::goToZone(context_.registry, zone_);
    zones::ZoneTexts texts;
    if (key == Found::Present) texts = zones::readTexts(context_.registry);
    const bool read = key == Found::Present && texts.usable();
    if (key == Found::Present && texts.name.found != Found::Unreadable)
        ShowName(forms::textOr(texts.name, forms::MissingName));
    general.details.Show(texts);

    // By number: a zone named "03" is offered the defaults of zone 3 as well.
    const auto number = util::wholeNumber(zone_);
    const bool builtIn = number && *number < zones::BuiltInZones.size();
    general.cmdGeneral(DefaultButton).setEnabled(read && builtIn);
    general.cmdGeneral(ApplyButton).setEnabled(read);
    if (general.reading.note(read)) TellUnreadable("name, description and icon");
}

void frmEdit::cmdGeneral_Click(int index) {
    procedure("frmEdit.cmdGeneral_Click", [&] {
        if (!general.details.Complete()) return;
        if (index == DefaultButton) GetDefaults();
        if (general.details.Fits() && StillShown()) SaveGeneral();
    });
}

void frmEdit::SaveGeneral() {
    if (Save([&] { general.details.Write(); })) {
        ShowName(general.details.txtZoneName.text());
    } else if (zones::goToZone(context_.registry, zone_) == Found::Present) {
        // The name may have been written although the rest was not.
        const TextReading name = context_.registry.readText(zones::value::DisplayName);
        if (name.found != Found::Unreadable) ShowName(forms::textOr(name, forms::MissingName));
    }
    context_.mainWindow->RebuildList();
}

void frmEdit::GetDefaults() {
    procedure("frmEdit.GetDefaults", [&] {
        general.details.picIcon.clear();
        if (const zones::BuiltInZone* defaults = zones::builtIn(zone_)) general.details.ShowDefaults(*defaults);
    });
}

// Flags ---------------------------------------------------------------------------------------------------------

void frmEdit::GetFlags() {
    procedure("frmEdit.GetFlags", [&] {
        const Found key = zones::goToZone(context_.registry, zone_);
        NumberReading stored;
        if (key == Found::Present) stored = zones::readFlags(context_.registry);
        const bool read = key == Found::Present && stored.usable();
        flags.show(!read ? 0 : stored.present() ? stored.number : zones::MissingFlags);

        for (int i = 0; i < flags.chkProperties.size(); ++i)
            flags.chkProperties(i).setEnabled(read && !(zone_ == "3" && i == HiddenFromBrowser));
        for (ui::CommandButton& button : flags.cmdFlags) button.setEnabled(read);
        if (flags.reading.note(read)) TellUnreadable("flags");
    });
}

void frmEdit::cmdFlags_Click(int index) {
    procedure("frmEdit.cmdFlags_Click", [&] {
        if (index == DefaultButton) {
            flags.show(zones::defaultsOf(zone_).flags);
        } else {
            SaveFlags();
        }
        context_.mainWindow->UpdateLabels(zone_);
    });
}

void frmEdit::SaveFlags() {
    if (StillShown()) Save([&] { context_.registry.writeNumber(zones::value::Flags, flags.shown()); });
}

// Levels --------------------------------------------------------------------------------------------------------

void frmEdit::GetRecMinSettings() {
    procedure("frmEdit.GetRecMinSettings", [&] {
        clsRegistry& registry = context_.registry;
        const clsRegistry::FailureWatch watch(registry);
        const std::string atIndex = zones::zoneAtIndex(registry, zone_);
        zones::ZoneLevels stored;
        if (!atIndex.empty() && zones::goToZone(registry, atIndex) == Found::Present)
            stored = zones::readLevels(registry);
        const bool tell = levels.reading.note(!watch.failed() && stored.usable());

        const NumberReading* inOrder[] = {&stored.recommended, &stored.minimum, &stored.current};
        for (int i = 0; i < int{std::size(inOrder)}; ++i) {
            if (inOrder[i]->present()) levels.show(i, inOrder[i]->number);
            cboSetting_Click(i);
        }
        if (tell) TellUnreadable("security levels");
    });
}

void frmEdit::cboSetting_Click(int index) {
    procedure("frmEdit.cboSetting_Click", [&] { levels.enableApply(index); });
}

void frmEdit::cmdApply_Click(int index) {
    procedure("frmEdit.cmdApply_Click", [&] {
        const int chosen = levels.cboSetting(index).listIndex();
        if (chosen < 0 || !StillShown()) return;
        if (index == CurrentLevel && !HasTemplate(chosen)) return;
        if (Save([&] { SaveLevel(index, chosen); })) levels.cmdApply(index).setEnabled(false);
        context_.mainWindow->UpdateLabels(zone_);
    });
}

bool frmEdit::HasTemplate(int level) {
    const clsRegistry::FailureWatch watch(context_.registry);
    if (zones::hasTemplate(context_.registry, level)) return true;
    const std::string name = zones::Levels[static_cast<std::size_t>(level)].name;
    errors::tell(context_.platform, watch.failed() ? "The browser's settings for the level \"" + name +
                                                         "\" could not be read. The zone is unchanged."
                                                   : "The browser has no settings for the level \"" + name +
                                                         "\" on this computer. The zone is unchanged.");
    return false;
}

// `chosen`: the index in the box, in which the zone's default follows the levels.
void frmEdit::SaveLevel(int index, int chosen) {
    if (index == CurrentLevel) return zones::SaveSecurityLevel(context_.registry, zone_, chosen);
    const zones::Defaults& defaults = zones::defaultsOf(zone_);
    const std::uint32_t number = chosen < zones::OfferedLevels ? zones::Levels[static_cast<std::size_t>(chosen)].number
                                 : index == RecommendedLevel   ? defaults.recommendedLevel
                                                               : defaults.minimumLevel;
    context_.registry.writeNumber(LevelRows[static_cast<std::size_t>(index)].value, number);
}

void frmEdit::cmdSecurity_Click() {
    procedure("frmEdit.cmdSecurity_Click", [&] {
        const ui::Hourglass hourglass(*this);
        frmSecurity settings(context_, zone_, name_);
        settings.onWritten = [this] { GetRecMinSettings(); };
        settings.showModal(this);
    });
}
