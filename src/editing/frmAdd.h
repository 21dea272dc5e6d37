// The dialog that makes a new zone: name, description and icon from the user, everything else as for a safe zone.
#pragma once

#include "editing/ZoneDetails.h"
#include "ui/CommandButton.h"
#include "ui/Form.h"

class frmAdd : public ui::Form {
public:
    explicit frmAdd(forms::Context& context);

    ZoneDetails details;
    ui::CommandButton cmdGeneral;

private:
    void cmdGeneral_Click();
    bool TemplateMissing();
    void CreateZone(const std::string& zone);

    forms::Context& context_;
};
