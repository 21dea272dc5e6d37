// Asks for a description and writes a backup of all zones: a registry export and a zone backup of one name.
#pragma once

#include "forms/Context.h"
#include "ui/CommandButton.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/TextBox.h"

class frmBackup : public ui::Form {
public:
    explicit frmBackup(forms::Context& context);

    ui::Label lblInfo;
    ui::TextBox txtDescription;
    ui::CommandButton cmdBackup, cmdCancel;

protected:
    void Form_Load() override;

private:
    void cmdBackup_Click();
    void cmdCancel_Click();
    void SaveRegFile(const std::string& fileName);
    void SaveZoneFile(const std::string& fileName, const std::string& description);

    forms::Context& context_;
};
