// The dialog in which one zone is edited, on three pages: name, description and icon; flags; security levels.
//
// A page is read from the registry each time its tab is chosen, and saved by its own "Apply".
#pragma once

#include "editing/frmEditPages.h"
#include "forms/Context.h"
#include "ui/CommandButton.h"
#include "ui/ControlArray.h"
#include "ui/Form.h"
#include "ui/PictureBox.h"
#include "ui/TabStrip.h"

class frmEdit : public ui::Form {
public:
    // Edits the zone of `selected`, which shows that icon.
    frmEdit(forms::Context& context, zones::Selection selected);

    ui::TabStrip TabStrip1;
    ui::ControlArray<ui::PictureBox> Picture1;  // the pages
    GeneralPage general;
    FlagsPage flags;
    LevelsPage levels;
    ui::CommandButton cmdClose;

protected:
    void Form_Load() override;

private:
    ui::PictureBox& addPage();
    void ConnectEvents();
    const std::string& zone() const { return general.details.selection.zone; }

    void TakeSelection();
    void RepairMyComputer();
    void TabStrip1_Click();
    void ShowPage(int page);
    void cmdClose_Click();

    void cmdGeneral_Click(int index);
    void SaveGeneral();
    void GetDefaults();

    void cmdFlags_Click(int index);
    void GetFlags();
    void ShowFlags(std::uint32_t bits);
    void SaveFlags();

    void cboSetting_Click(int index);
    void cmdApply_Click(int index);
    bool SaveLevel(int index, const std::string& chosen);
    bool SaveTemplate(int level);
    void cmdSecurity_Click();
    void GetRecMinSettings();
    void ReadLevel(int index);

    forms::Context& context_;
};
