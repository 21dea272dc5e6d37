// Asks for a description and writes a backup of all zones: a registry export and a zone backup of one name.
#pragma once

#include <string>
#include <vector>

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
    // False when it failed, which the user has been told.
    bool SaveRegFile(const std::string& fileName, const std::vector<std::string>& zones);
    bool SaveZoneFile(const std::string& fileName, const std::string& description,
                      const std::vector<std::string>& zones);

    forms::Context& context_;
};
