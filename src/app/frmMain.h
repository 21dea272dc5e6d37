// The main window: the list of zones, a summary of the selected one, and every command of the program.
#pragma once

#include "backup/Restoration.h"
#include "forms/Context.h"
#include "forms/ZoneList.h"
#include "ui/CommandButton.h"
#include "ui/ControlArray.h"
#include "ui/Form.h"
#include "ui/Frame.h"
#include "ui/Image.h"
#include "ui/ImageList.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/Menu.h"
#include "ui/Timer.h"
#include "zones/ZoneRecord.h"
#include "zones/deletion.h"
#include "zones/zones.h"

// The zone that was clicked last, and its icon.
struct Selection {
    std::string zone;  // its key name
    icons::IconReference icon;
};

class frmMain : public ui::Form, public forms::MainWindow {
public:
    explicit frmMain(forms::Context& context);
    ~frmMain() override;

    // In both views the logo is at the bottom, so the height of the window follows from its position. Another logo's
    // height and 20 twips are added as room for the caption and the menu. What the user adds to that is the list's.
    static constexpr ui::Twips FrameToLogo = 50;
    static constexpr ui::Twips heightFor(ui::Twips logoTop, ui::Twips logoHeight) {
        return 2 * logoHeight + logoTop + 20;
    }

    // Fills the empty list and selects its second zone, or the only one. Without zones the user is told.
    void FillListView();
    // Empties the list and fills it again.
    void RebuildList() override;
    void UpdateLabels(const std::string& zone) override;
    void ReloadAsItIs() override;
    // The zone that was clicked last, and its icon.
    const Selection& selection() const { return selection_; }

    ui::ListView lvwZones;
    ui::ImageList ilsZoneIcons;
    ui::Image picDummy, picHolder;
    ui::Image picZoneIcon;
    ui::Label lblZoneName, lblZoneCaption;
    ui::ControlArray<ui::CommandButton> cmdZoneOption;  // 0 edit, 1 add, 2 delete
    ui::Frame zzzfraInfo;
    ui::ControlArray<ui::Label> zzzlblInfo;
    ui::Label lblFlags, lblRec, lblMin, lblCurrent;
    ui::Image zzzpicLogo;
    ui::Timer tmrIconSpace;
    ui::Timer tmrImport;  // runs while a backup is being restored

    ui::MenuItem& mnuFile;
    ui::MenuItem& mnuFileBackup;
    ui::MenuItem& mnuFileRestore;
    ui::MenuItem& zzzMnuFileSep;
    ui::MenuItem& mnuFileExit;
    ui::MenuItem& mnuEdit;
    ui::MenuItem& mnuEditEdit;
    ui::MenuItem& mnuEditAdd;
    ui::MenuItem& mnuEditDelete;
    ui::MenuItem& zzzmnuEditSep;
    ui::MenuItem& mnuEditOESecurity;
    ui::MenuItem& mnuView;
    ui::MenuItem& mnuViewBasic;
    ui::MenuItem& mnuViewAdv;
    ui::MenuItem& mnuHelp;

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override;
    bool Form_KeyDown(ui::FormKey key) override;

private:
    void lvwZones_ItemClick(int item);
    void cmdZoneOption_Click(int index);
    void mnuEditEdit_Click();
    void mnuEditAdd_Click();
    void mnuEditDelete_Click();
    void EditSelectedZone();
    void AddZone();
    void DeleteSelectedZone();
    std::optional<zones::DeletionPlan> PlanDeletion(const std::string& zone, const std::string& name);
    void mnuFileBackup_Click();
    void mnuFileRestore_Click();
    void mnuFileExit_Click();
    void LoadIdentities();
    void mnuOEUser_Click(int index);
    void mnuViewBasic_Click();
    void mnuViewAdv_Click();
    void tmrIconSpace_Timer();
    void tmrImport_Timer();

    void ShowAtAGlance(const zones::ZoneRecord& zone);
    std::string GetFlags(const NumberReading& flags);
    void GetRecMinSettings(const zones::ZoneLevels& levels);
    void DeleteSelfHealCount();
    void SetFormAttributes();
    void WriteFirstAttributes();
    void ReadAttributes();
    void ReadPlace();
    void WritePlace();
    ui::Twips ReadLength(const char* name);
    void WriteLength(const char* name, ui::Twips length);
    void ShowView(std::uint32_t view);
    void ChangeView(std::uint32_t view);
    void StretchList(ui::Twips by);
    void GiveListTheRest();
    void LimitHeight();
    void ReadAgain();
    void ShowLogo();
    void DrawEtchedLine();
    void SelectUsualZone(basMain::IconCache& icons);
    void ShowZone(int item, basMain::IconCache& icons);
    void ClearSummary();
    // As in the list: the summary may already show another zone, which has got the number since.
    const std::string& selectedName() const { return lvwZones.item(lvwZones.selected()).text; }
    // Whether a backup is being restored; the user is told then.
    bool WaitsForImport();
    forms::ZoneListControls zoneList() { return {lvwZones, ilsZoneIcons, picDummy, picHolder}; }

    forms::Context& context_;
    Selection selection_;
    backup::Restoration restoration_;
};
