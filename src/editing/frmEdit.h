// The dialog in which one zone is edited, on three pages: name, description and icon; flags; security levels.
//
// The pages of flags and levels are read from the registry each time their tab is chosen, the general one when the
// dialog is loaded. Each is saved by its own "Apply".
#pragma once

#include <string>

#include "editing/FlagsPage.h"
#include "editing/GeneralPage.h"
#include "editing/LevelsPage.h"
#include "forms/Context.h"
#include "ui/CommandButton.h"
#include "ui/ControlArray.h"
#include "ui/Form.h"
#include "ui/Image.h"
#include "ui/Label.h"
#include "ui/TabStrip.h"
#include "util/FunctionRef.h"
#include "zones/ZoneRecord.h"

// The containers of the pages' controls.
struct EditPages : ui::ControlArray<ui::Image> {
    explicit EditPages(ui::Form& form);
};

class frmEdit : public ui::Form {
public:
    // Edits the zone that the user knows by the name `shownName`.
    frmEdit(forms::Context& context, std::string zone, std::string shownName);

    ui::TabStrip TabStrip1;
    EditPages Picture1;
    GeneralPage general;
    FlagsPage flags;
    LevelsPage levels;
    ui::Label lblZone;
    ui::CommandButton cmdClose;

protected:
    void Form_Load() override;
    bool Form_KeyDown(ui::FormKey key) override;

private:
    void ConnectEvents();
    void RepairMyComputer();
    void TabStrip1_Click();
    void ShowPage(int page);
    void BindEnter();
    void cmdClose_Click();

    // Whether the zone is still the one that the dialog was opened for. Otherwise the user has been told.
    bool StillShown();
    bool Save(util::FunctionRef<void()> write);
    void TellUnreadable(const char* values);
    void ShowName(std::string name);

    void ReadGeneral();
    void cmdGeneral_Click(int index);
    void SaveGeneral();
    void GetDefaults();

    void cmdFlags_Click(int index);
    void GetFlags();
    void SaveFlags();

    void cboSetting_Click(int index);
    void cmdApply_Click(int index);
    bool HasTemplate(int level);
    void SaveLevel(int index, int chosen);
    void cmdSecurity_Click();
    void GetRecMinSettings();

    forms::Context& context_;
    std::string zone_;
    std::string name_;  // as it was last shown, read or saved
};
