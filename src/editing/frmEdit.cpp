#include "editing/frmEdit.h"

#include <algorithm>
#include <cstdint>

#include "editing/frmSecurity.h"
#include "errors/messages.h"
#include "forms/ZoneChange.h"
#include "icons/ExtractIcon.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/Hourglass.h"
#include "ui/Layout.h"
#include "util/numbers.h"
#include "util/procedure.h"
#include "zones/Defaults.h"
#include "zones/Templates.h"
#include "zones/ZoneRecord.h"

namespace {

constexpr const char* DefaultLevel = "[Default]";

// A page is shown by its place: where the tab strip leaves room for it, or far off the form.
using namespace ui::layout;
constexpr ui::Twips PageLeft = 105, PageTop = 525, HiddenLeft = -10000;

constexpr ui::Twips Edge = 45;
constexpr ui::Bounds Tabs{PageLeft - Edge, Margin, PageSize.width + 2 * Edge,
                          PageTop - Margin + PageSize.height + Edge};
constexpr ui::Twips CloseTop = Tabs.bottom() + Margin;
constexpr ui::Size Client{Tabs.right() + PageLeft - Edge, CloseTop + ButtonHeight + Margin};

enum Page { GeneralTab = 1, FlagsTab, SecurityTab };
enum { Default = 0, Apply = 1 };  // of cmdGeneral and cmdFlags

}  // namespace

frmEdit::frmEdit(forms::Context& context, zones::Selection selected)
    : Form(context.platform.desktop, Kind::Dialog, "frmEdit", "Edit Zone", Client),
      // ---- General | Flags | Security
      TabStrip1(*this, "TabStrip1", Tabs, {"General", "Flags", "Security"}),
      Picture1("Picture1"),
      general(context, addPage()),
      flags(addPage()),
      levels(addPage()),
      // ----                       [Close]
      cmdClose(*this, "cmdClose", {Tabs.right() - ButtonWidth, CloseTop, ButtonWidth, ButtonHeight}, "Close"),
      context_(context) {
    general.details.selection = std::move(selected);
    setCancelButton(cmdClose);
    ConnectEvents();
    ShowPage(GeneralTab);
}

ui::PictureBox& frmEdit::addPage() {
    return Picture1.add(*this, {HiddenLeft, PageTop, PageSize.width, PageSize.height}, ui::PictureBox::Border::None);
}

void frmEdit::ConnectEvents() {
    TabStrip1.onClick = [this] { TabStrip1_Click(); };
    cmdClose.onClick = [this] { cmdClose_Click(); };
    for (const int i : {Default, Apply}) {
        general.cmdGeneral(i).onClick = [this, i] { cmdGeneral_Click(i); };
        flags.cmdFlags(i).onClick = [this, i] { cmdFlags_Click(i); };
    }
    for (int i = 0; i < levels.cboSetting.size(); ++i) {
        levels.cboSetting(i).onClick = [this, i] { cboSetting_Click(i); };
        levels.cmdApply(i).onClick = [this, i] { cmdApply_Click(i); };
        // Enter applies the level that the user is choosing.
        levels.cboSetting(i).onGotFocus = [this, i] { setDefaultButton(levels.cmdApply(i)); };
    }
    levels.cmdSecurity.onClick = [this] { cmdSecurity_Click(); };
}

void frmEdit::Form_Load() {
    procedure("frmEdit.Form_Load", [&] {
        TakeSelection();
        // By number: a zone named "03" is offered the defaults of zone 3 as well.
        const auto number = util::wholeNumber(zone());
        general.cmdGeneral(Default).setEnabled(number && *number < zones::BuiltInZones.size());
        RepairMyComputer();
        if (zone() == "3") flags.chkProperties(5).setEnabled(false);

        std::vector<std::string> offered;
        for (int i = 0; i < zones::OfferedLevels; ++i) offered.emplace_back(zones::Levels[i].name);
        levels.cboSetting(CurrentLevel).setItems(offered);
        offered.emplace_back(DefaultLevel);
        levels.cboSetting(RecommendedLevel).setItems(offered);
        levels.cboSetting(MinimumLevel).setItems(offered);
    });
}

void frmEdit::TakeSelection() {
    zones::Selection& own = general.details.selection;
    zones::goToZone(context_.registry, own.zone);
    if (context_.registry.readText(zones::value::Icon).text.find('#') != std::string::npos) return;
    // The main window shows the program's icon for a zone that has none; that is not to become the zone's.
    own.iconFile.clear();
    own.iconResource.clear();
}

// Whichever zone is edited. A lowest level of 0 is none that the browser offers.
void frmEdit::RepairMyComputer() {
    clsRegistry& registry = context_.registry;
    zones::goToZone(registry, "0");
    const NumberReading minimum = registry.readNumber(zones::value::MinLevel);
    if (!minimum.present() || minimum.number != 0) return;
    forms::change(context_, "0", [&] {
        constexpr std::uint32_t Low = 65536;
        registry.writeNumber(zones::value::MinLevel, Low);
        registry.writeNumber(zones::value::RecommendedLevel, Low);
    });
}

void frmEdit::TabStrip1_Click() {
    procedure("frmEdit.TabStrip1_Click", [&] {
        if (TabStrip1.selected() == FlagsTab) GetFlags();
        if (TabStrip1.selected() == SecurityTab) GetRecMinSettings();
        ShowPage(TabStrip1.selected());
    });
}

void frmEdit::ShowPage(int page) {
    for (int i = 0; i < Picture1.size(); ++i) Picture1(i).setLeft(i == page - 1 ? PageLeft : HiddenLeft);
    setDefaultButton(page == GeneralTab ? general.cmdGeneral(Apply)
                     : page == FlagsTab ? flags.cmdFlags(Apply)
                                        : levels.cmdApply(CurrentLevel));
}

void frmEdit::cmdClose_Click() {
    procedure("frmEdit.cmdClose_Click", [&] { unload(); });
}

// General -------------------------------------------------------------------------------------------------------

void frmEdit::cmdGeneral_Click(int index) {
    procedure("frmEdit.cmdGeneral_Click", [&] {
        if (!general.details.Complete()) return;
        if (index == Default) {
            general.details.picIcon.clear();
            GetDefaults();
        }
        SaveGeneral();
    });
}

void frmEdit::SaveGeneral() {
    forms::change(context_, zone(), [&] {
        zones::goToZone(context_.registry, zone());
        general.details.Write();
    });
    context_.mainWindow->RebuildList();
}

void frmEdit::GetDefaults() {
    procedure("frmEdit.GetDefaults", [&] {
        const zones::BuiltInZone* defaults = zones::builtIn(zone());
        if (!defaults) return;
        ZoneDetails& details = general.details;
        details.txtZoneName.setText(defaults->name);
        details.txtZoneDescription.setText(defaults->description);
        details.selection.iconFile = defaults->iconFile;
        details.selection.iconResource = defaults->iconResource;
        details.DrawIcon();
    });
}

// Flags ---------------------------------------------------------------------------------------------------------

void frmEdit::GetFlags() {
    procedure("frmEdit.GetFlags", [&] {
        clsRegistry& registry = context_.registry;
        zones::goToZones(registry);
        std::uint32_t bits = zones::MissingFlags;
        if (registry.HasKeys()) {
            zones::goToZone(registry, zone());
            if (const NumberReading stored = zones::readFlags(registry); stored.found != Found::Absent)
                bits = stored.number;
        }
        ShowFlags(bits);
    });
}

void frmEdit::ShowFlags(std::uint32_t bits) {
    for (int i = 0; i < flags.chkProperties.size(); ++i) flags.chkProperties(i).setChecked((bits >> i & 1) != 0);
}

void frmEdit::cmdFlags_Click(int index) {
    procedure("frmEdit.cmdFlags_Click", [&] {
        if (index == Default) {
            ShowFlags(zones::defaultsOf(zone()).flags);
        } else {
            SaveFlags();
        }
        context_.mainWindow->UpdateLabels(zone());
    });
}

// The boxes are all there is: bits that the zone had beyond them go.
void frmEdit::SaveFlags() {
    std::uint32_t sum = 0;
    for (const ui::CheckBox& box : flags.chkProperties)
        if (box.checked()) sum += util::wholeNumber(box.tag()).value_or(0);
    forms::change(context_, zone(), [&] {
        zones::goToZone(context_.registry, zone());
        context_.registry.writeNumber(zones::value::Flags, sum);
    });
}

// Levels --------------------------------------------------------------------------------------------------------

void frmEdit::GetRecMinSettings() {
    procedure("frmEdit.GetRecMinSettings", [&] {
        const std::string place = zones::zoneAtPlace(context_.registry, zone());
        const bool found = !place.empty() && zones::goToZone(context_.registry, place) == Found::Present;
        for (int i = 0; i < levels.cboSetting.size(); ++i) {
            if (found) ReadLevel(i);
            cboSetting_Click(i);
        }
    });
}

// A level that is none of those that can be chosen leaves label and box as they are.
void frmEdit::ReadLevel(int index) {
    const auto row = static_cast<std::size_t>(index);
    const NumberReading stored = context_.registry.readNumber(LevelRows[row].value);
    if (!stored.present()) return;
    const auto level = zones::levelIndex(stored.number);
    if (!level) return;
    const bool custom = *level >= zones::OfferedLevels;
    if (custom && index != CurrentLevel) return;
    levels.stored[row].setCaption(zones::Levels[static_cast<std::size_t>(*level)].name);
    if (!custom) levels.cboSetting(index).setListIndex(*level);
}

void frmEdit::cboSetting_Click(int index) {
    procedure("frmEdit.cboSetting_Click", [&] {
        const ui::ComboBox& box = levels.cboSetting(index);
        const bool change =
            box.listIndex() >= 0 && box.text() != levels.stored[static_cast<std::size_t>(index)].caption();
        levels.cmdApply(index).setEnabled(change);
    });
}

void frmEdit::cmdApply_Click(int index) {
    procedure("frmEdit.cmdApply_Click", [&] {
        const std::string chosen = levels.cboSetting(index).text();
        bool there = true;
        const bool written = forms::change(context_, zone(), [&] { there = SaveLevel(index, chosen); });
        if (there && written) levels.cmdApply(index).setEnabled(false);
    });
}

// False when there is nothing of that name to be written.
bool frmEdit::SaveLevel(int index, const std::string& chosen) {
    clsRegistry& registry = context_.registry;
    const auto level = std::find_if(zones::Levels.begin(), zones::Levels.end(),
                                    [&](const zones::Level& known) { return chosen == known.name; });
    const bool known = level != zones::Levels.end();
    if (index == CurrentLevel) return known && SaveTemplate(static_cast<int>(level - zones::Levels.begin()));
    if (!known && chosen != DefaultLevel) return false;

    const zones::Defaults& defaults = zones::defaultsOf(zone());
    const std::uint32_t number = known                       ? level->number
                                 : index == RecommendedLevel ? defaults.recommendedLevel
                                                             : defaults.minimumLevel;
    zones::goToZone(registry, zone());
    registry.writeNumber(LevelRows[static_cast<std::size_t>(index)].value, number);
    return true;
}

bool frmEdit::SaveTemplate(int level) {
    if (!zones::hasTemplate(context_.registry, level)) {
        errors::tell(context_.platform, std::string("The browser has no settings for the level \"") +
                                            zones::Levels[static_cast<std::size_t>(level)].name +
                                            "\" on this computer. The zone is unchanged.");
        return false;
    }
    zones::SaveSecurityLevel(context_.registry, zone(), level);
    return true;
}

void frmEdit::cmdSecurity_Click() {
    procedure("frmEdit.cmdSecurity_Click", [&] {
        const ui::Hourglass hourglass(*this);
        frmSecurity settings(context_, zone());
        settings.onWritten = [this] { GetRecMinSettings(); };
        settings.showModal(this);
    });
}
