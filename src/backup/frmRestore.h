// Lists the backups, shows what is in one, and restores or deletes it.
#pragma once

#include <memory>
#include <string>

#include "backup/Restoration.h"
#include "forms/Context.h"
#include "ui/CommandButton.h"
#include "ui/ControlArray.h"
#include "ui/Form.h"
#include "ui/Frame.h"
#include "ui/Image.h"
#include "ui/ImageList.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/Timer.h"

class frmRestore : public ui::Form {
public:
    frmRestore(forms::Context& context, backup::Restoration& restoration);
    ~frmRestore() override;

    ui::Label Label1;
    ui::ListView ListView1;      // the backups
    ui::Label lblWritten;        // when the selected backup was made, or that there are none
    ui::ImageList ilsZoneIcons;  // pictures of lvwZones
    ui::ListView lvwZones;       // the zones of the selected backup
    ui::Image picInfo;           // the selected zone
    ui::Image picZoneIcon;
    ui::Label lblZoneName, lblZoneCaption;
    ui::Frame zzzfraInfo;
    ui::ControlArray<ui::Label> zzzlblInfo;
    ui::Label lblCurrent, lblMin, lblRec, lblFlags;
    ui::CommandButton cmdRestore, cmdDelete;
    ui::Image picHolder, picDummy;
    ui::Timer tmrWatch;
    ui::Timer tmrFill;  // runs while zones of a long backup are still being added

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload() override;

private:
    void ListView1_ItemClick(int item);
    void lvwZones_ItemClick(int item);
    void cmdRestore_Click();
    void cmdDelete_Click();
    void tmrWatch_Timer();
    void tmrFill_Timer();

    // Lists the files that match `pattern` in `folder`, which ends in a backslash.
    void GetFileInformation(const std::string& folder, const std::string& pattern);
    void ListBackups();
    // The description of a backup; "" when it cannot be read.
    std::string ParseFile(const std::string& path);
    // Shows the zones of a backup, and previews the first.
    void FillList(const std::string& path);
    void ParseInfo();
    // Adds zones for a fraction of a second. What remains is added by the timer, unless the user has turned to another
    // backup or left by then.
    void AddZones();
    void ClearPreview();
    void ShowLevel(ui::Label& label, const std::string& stored, bool current);

    // A backup whose zones are being added to the list.
    struct Filling;

    forms::Context& context_;
    backup::Restoration& restoration_;
    std::string selected_;  // path of the ".tvf" file, "" for none
    std::unique_ptr<Filling> filling_;
};
