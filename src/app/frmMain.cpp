#include "app/frmMain.h"

#include "errors/ErrorReporter.h"
#include "forms/EtchedLine.h"
#include "forms/WindowProc.h"
#include "forms/ZoneChange.h"
#include "icons/ExtractIcon.h"
#include "ui/Desktop.h"
#include "ui/Layout.h"
#include "util/Error.h"
#include "util/application.h"
#include "util/basSystem.h"
#include "util/procedure.h"

namespace {

// Measures of the design.
using namespace ui::layout;
constexpr ui::Twips Width = 6900, Inner = Width - 2 * Margin, ButtonsTop = 3735;
constexpr ui::Twips CommandWidth = ButtonWidth + 90;       // "Delete Zone"
constexpr ui::Twips ListHeight = 2310, LowestList = 1200;  // two rows of icons, and one
constexpr ui::Twips DescriptionHeight = 615;               // three lines: the longest that the browser reads
constexpr ui::Twips FrameHeight = 1050, FrameAt = ButtonsTop + ButtonHeight + Margin;
constexpr ui::Twips LogoHeight = 810, LogoAt = FrameAt + FrameHeight + frmMain::FrameToLogo;

}  // namespace

frmMain::frmMain(forms::Context& context)
    : Form(context.platform.desktop, Kind::Main, "frmMain", AppTitle, {Width, LogoAt + LogoHeight + Margin}),
      // ---- the zones
      lvwZones(*this, "lvwZones", {Margin, Margin, Inner, ListHeight}, ui::ListView::View::Icon,
               ui::ListView::Clicks::OnSelect),
      ilsZoneIcons(*this, "ilsZoneIcons", 32),
      picDummy(*this, "picDummy", {0, 0, 480, 480}),
      picHolder(*this, "picHolder", {0, 0, 480, 480}),
      // ---- the selected zone:  [icon]  name
      //                                  description
      picZoneIcon(*this, "picZoneIcon", {Margin, 2580, 480, 480}),
      lblZoneName(*this, "lblZoneName", {720, 2550, Inner - 600, 225}, ""),
      lblZoneCaption(*this, "lblZoneCaption", {720, 2790, Inner - 600, DescriptionHeight}, ""),
      // ---- [Edit Zone] [Add Zone] [Delete Zone]
      cmdZoneOption("cmdZoneOption"),
      // ---- At a glance:  flags     recommended
      //                    minimum   current
      zzzfraInfo(*this, "zzzfraInfo", {Margin, FrameAt, Inner, FrameHeight}, "At a glance"),
      zzzlblInfo("zzzlblInfo"),
      lblFlags(captioned(zzzlblInfo, zzzfraInfo, {150, 300, 1680, 225}, "Flags:"), "lblFlags", {1845, 300, 1140, 225},
               ""),
      lblRec(captioned(zzzlblInfo, zzzfraInfo, {3000, 300, 2280, 225}, "Recommended Level: "), "lblRec",
             {5295, 300, 1260, 225}, ""),
      lblMin(captioned(zzzlblInfo, zzzfraInfo, {150, 660, 1680, 225}, "Minimum Level: "), "lblMin",
             {1845, 660, 1140, 225}, ""),
      lblCurrent(captioned(zzzlblInfo, zzzfraInfo, {3000, 660, 2280, 225}, "Current Level: "), "lblCurrent",
                 {5295, 660, 1260, 225}, ""),
      // ---- the program's logo
      zzzpicLogo(*this, "zzzpicLogo", {Margin, LogoAt, Inner, LogoHeight}),
      tmrIconSpace(*this, "tmrIconSpace", 50),
      tmrImport(*this, "tmrImport", 250),

      mnuFile(menu().add("mnuFile", "&File")),
      mnuFileBackup(mnuFile.add("mnuFileBackup", "&Backup Zones...")),
      mnuFileRestore(mnuFile.add("mnuFileRestore", "&Restore Zones...")),
      zzzMnuFileSep(mnuFile.add("zzzMnuFileSep", "-")),
      mnuFileExit(mnuFile.add("mnuFileExit", "E&xit")),
      mnuEdit(menu().add("mnuEdit", "&Edit")),
      mnuEditEdit(mnuEdit.add("mnuEditEdit", "Edi&t Zone...")),
      mnuEditAdd(mnuEdit.add("mnuEditAdd", "&Add Zone...")),
      mnuEditDelete(mnuEdit.add("mnuEditDelete", "&Delete Zone")),
      zzzmnuEditSep(mnuEdit.add("zzzmnuEditSep", "-")),
      mnuEditOESecurity(mnuEdit.add("mnuEditOESecurity", "&Outlook Express Security")),
      mnuView(menu().add("mnuView", "&View")),
      mnuViewBasic(mnuView.add("mnuViewBasic", "&Basic")),
      mnuViewAdv(mnuView.add("mnuViewAdv", "&Advanced")),
      mnuHelp(menu().add("mnuHelp", "&Help")),
      context_(context),
      restoration_(context) {
    const char* commands[] = {"Edit Zone", "Add Zone", "Delete Zone"};
    for (int i = 0; i < 3; ++i) {
        const ui::Twips fromRight = (3 - i) * CommandWidth + (2 - i) * Margin;
        auto& button =
            cmdZoneOption.add(*this, {Width - Margin - fromRight, ButtonsTop, CommandWidth, ButtonHeight}, commands[i]);
        button.onClick = [this, i] { cmdZoneOption_Click(i); };
    }

    lblZoneName.makeBold().makeOneLine();
    picDummy.setVisible(false);
    picHolder.setVisible(false);

    lvwZones.onItemClick = [this](int item) { lvwZones_ItemClick(item); };
    tmrIconSpace.onTimer = [this] { tmrIconSpace_Timer(); };
    tmrImport.onTimer = [this] { tmrImport_Timer(); };
    mnuFileBackup.onClick = [this] { mnuFileBackup_Click(); };
    mnuFileRestore.onClick = [this] { mnuFileRestore_Click(); };
    mnuFileExit.onClick = [this] { mnuFileExit_Click(); };
    mnuEditEdit.onClick = [this] { mnuEditEdit_Click(); };
    mnuEditAdd.onClick = [this] { mnuEditAdd_Click(); };
    mnuEditDelete.onClick = [this] { mnuEditDelete_Click(); };
    mnuViewBasic.onClick = [this] { mnuViewBasic_Click(); };
    mnuViewAdv.onClick = [this] { mnuViewAdv_Click(); };
    mnuViewAdv.setEnabled(false);  // the designed state is the advanced view

    mnuEditOESecurity.add("mnuOEUser", "(no identities)", 0).setEnabled(false);

    lvwZones.onOpen = [this] { cmdZoneOption_Click(0); };
    for (ui::CommandButton& button : cmdZoneOption) lvwZones.addCommand(button);

    setHeight(heightFor(LogoAt, LogoHeight));
    context_.mainWindow = this;
    errors::reporting.mainWindow = this;
}

frmMain::~frmMain() {
    context_.mainWindow = nullptr;
    errors::reporting.mainWindow = nullptr;
}

// Load and unload -----------------------------------------------------------------------------------------------

void frmMain::Form_Load() {
    procedure("frmMain.Form_Load", [&] {
        basMain::Hook(*this);
        DeleteSelfHealCount();
        FillListView();
        LoadIdentities();
        ShowLogo();
        SetFormAttributes();
        DrawEtchedLine();
        setCaption(std::string(AppTitle) + " - " + AppVersion + " (Public BETA)");
    });
}

void frmMain::Form_Unload() {
    procedure("frmMain.Form_Unload", [&] {
        basMain::Unhook(*this);
        WritePlace();
        restoration_.abandon();
        const std::vector<Form*> open = desktop().forms();
        for (Form* form : open) form->unload();
    });
}

// Controls as wide as the window keep their margins, the buttons stay at the right, the list is as high as it can be.
void frmMain::Form_Resize() {
    procedure("frmMain.Form_Resize", [&] {
        const ui::Twips inner = std::max(client().width, smallest().width) - 2 * Margin;
        lvwZones.setWidth(inner);
        lblZoneName.setWidth(inner - 600);
        lblZoneCaption.setWidth(inner - 600);
        zzzfraInfo.setWidth(inner);
        zzzpicLogo.setWidth(inner);
        for (int i = 0; i < cmdZoneOption.size(); ++i)
            cmdZoneOption(i).setLeft(Margin + inner - (3 - i) * CommandWidth - (2 - i) * Margin);
        GiveListTheRest();
        if (!lines().empty()) DrawEtchedLine();
    });
}

void frmMain::GiveListTheRest() {
    StretchList(height() - heightFor(zzzpicLogo.top(), zzzpicLogo.height()));
    LimitHeight();
}

// Without the logo everything can still be used.
void frmMain::LimitHeight() {
    setSmallestHeight(zzzpicLogo.top() - lvwZones.height() + LowestList);
}

void frmMain::StretchList(ui::Twips by) {
    by = std::max(by, LowestList - lvwZones.height());
    if (by != 0) lvwZones.stretch(by);
}

bool frmMain::Form_KeyDown(ui::FormKey key) {
    if (key != ui::FormKey::Refresh) return false;
    procedure("frmMain.Form_KeyDown", [&] {
        if (!WaitsForImport()) ReadAgain();
    });
    return true;
}

// The zone that is selected stays selected, if it is still there.
void frmMain::ReadAgain() {
    const std::string zone = selection_.zone;
    RebuildList();
    for (int item = 1; item <= lvwZones.count(); ++item) {
        if (lvwZones.item(item).tag != zone || item == lvwZones.selected()) continue;
        lvwZones.setSelected(item);
        lvwZones_ItemClick(item);
        return;
    }
}

// From the program's own file. The separator is "|", which no path contains; a folder's name may contain a "#".
// It is there for 96 and for 192 dots to the inch; a screen between the two gets the larger one.
void frmMain::ShowLogo() {
    const char* logo = desktop().pixelsPerInch() > 96 ? "|2" : "|1";
    basMain::ExtractBitmap(context_.platform, basSystem::ProgramFile(context_.platform) + logo, "|", zzzpicLogo);
}

void frmMain::DrawEtchedLine() {
    const auto& button = cmdZoneOption(0);
    basMain::EtchedLine(*this, 0, button.top() - button.height() / 2, client().width);
}

// The browser counts its repairs of the zones here; a count left over makes it repair what the user changed.
void frmMain::DeleteSelfHealCount() {
    zones::goToZones(context_.registry);
    constexpr const char* Count = zones::SelfHealCount;
    if (context_.registry.ValueOf(Count)) context_.registry.DeleteValue(Count);
}

// The list of zones ---------------------------------------------------------------------------------------------

void frmMain::FillListView() {
    procedure("frmMain.FillListView", [&] {
        basMain::IconCache icons(context_.platform);
        const clsRegistry::FailureWatch watch(context_.registry);
        forms::fillZoneList(context_, zoneList(), icons);
        if (lvwZones.count() > 0) return SelectUsualZone(icons);
        ClearSummary();
        throw util::Error(util::NumberOutOfRange, "frmMain",
                          watch.failed() ? "The security zones of Internet Explorer cannot be read from the registry."
                                         : "Internet Explorer has no security zones for this user. Restoring a backup "
                                           "brings them back.");
    });
}

void frmMain::SelectUsualZone(basMain::IconCache& icons) {
    const int usual = lvwZones.count() == 1 ? 1 : 2;
    lvwZones.setSelected(usual);
    ShowZone(usual, icons);
    tmrIconSpace.setEnabled(true);
}

void frmMain::RebuildList() {
    forms::clearZoneList(zoneList());
    FillListView();
}

void frmMain::tmrIconSpace_Timer() {
    procedure("frmMain.tmrIconSpace_Timer", [&] {
        if (!errors::errorPending()) lvwZones.setIconSpacing({75, 75});
        tmrIconSpace.setEnabled(false);
    });
}

void frmMain::lvwZones_ItemClick(int item) {
    procedure("frmMain.lvwZones_ItemClick", [&] {
        const ui::ListItem clicked = lvwZones.item(item);
        // The list may be older than what another program has written: its names would stand beside other zones' texts.
        if (zones::goToZone(context_.registry, clicked.tag) != Found::Unreadable &&
            !forms::stillShown(context_, clicked.tag, clicked.text, "The zones have been read again."))
            return;
        basMain::IconCache icons(context_.platform);
        ShowZone(item, icons);
    });
}

void frmMain::ShowZone(int item, basMain::IconCache& icons) {
    procedure("frmMain.lvwZones_ItemClick", [&] {
        selection_.zone = lvwZones.item(item).tag;
        const zones::ZoneRecord zone = zones::readZone(context_.registry, selection_.zone);
        picZoneIcon.clear();
        selection_.icon = icons::referenceOrDefault(context_.platform, zone.texts.icon.text);
        basMain::ExtractIcon(icons, selection_.icon, 32, picZoneIcon);
        lblZoneName.setCaption(forms::textOr(zone.texts.name, forms::MissingName));
        lblZoneCaption.setCaption(forms::textOr(zone.texts.description, forms::MissingDescription));
        ShowAtAGlance(zone);

        cmdZoneOption(2).setEnabled(!zones::isBuiltIn(selection_.zone));
        mnuEditDelete.setEnabled(false);  // always: the button and the list's own menu offer it
    });
}

// Of a zone that is not selected nothing is shown.
void frmMain::UpdateLabels(const std::string& zone) {
    procedure("frmMain.UpdateLabels", [&] {
        if (zone == selection_.zone) ShowAtAGlance(zones::readZone(context_.registry, zone));
    });
}

void frmMain::ClearSummary() {
    selection_ = {};
    picZoneIcon.clear();
    for (ui::Label* label : {&lblZoneName, &lblZoneCaption, &lblFlags, &lblRec, &lblMin, &lblCurrent})
        label->setCaption("");
    cmdZoneOption(2).setEnabled(false);
    mnuEditDelete.setEnabled(false);
}

void frmMain::ShowAtAGlance(const zones::ZoneRecord& zone) {
    GetRecMinSettings(zone.levels);
    lblFlags.setCaption(GetFlags(zone.flags));
}

std::string frmMain::GetFlags(const NumberReading& flags) {
    return procedure("frmMain.GetFlags", [&] { return flags.display.empty() ? "Missing" : flags.display; });
}

// A level that is absent or none of the five leaves its label as it was for the zone before.
void frmMain::GetRecMinSettings(const zones::ZoneLevels& levels) {
    procedure("frmMain.GetRecMinSettings", [&] {
        const struct {
            const NumberReading& stored;
            ui::Label& label;
            const char* zero;
        } rows[] = {{levels.recommended, lblRec, zones::MissingLevel},
                    {levels.minimum, lblMin, zones::MissingLevel},
                    {levels.current, lblCurrent, "Custom"}};
        for (const auto& row : rows) {
            if (!row.stored.present()) continue;
            if (const auto level = zones::levelIndex(row.stored.number))
                row.label.setCaption(row.stored.number == 0 ? row.zero : zones::Levels[*level].name);
        }
    });
}

// Closing -------------------------------------------------------------------------------------------------------

void frmMain::mnuFileExit_Click() {
    procedure("frmMain.mnuFileExit_Click", [&] { unload(); });
}
