// The error dialog: says what went wrong and where, logs it, and lets the user go on or end the program.
#pragma once

#include "ui/CommandButton.h"
#include "ui/ControlArray.h"
#include "ui/Form.h"
#include "ui/Image.h"
#include "ui/Label.h"

class frmError : public ui::Form {
public:
    explicit frmError(ui::Desktop& desktop);

    ui::Image imgExclaim;
    ui::ControlArray<ui::Label> lblInfo{"lblInfo"};
    ui::Label lblModule, lblProcedure, lblLine, lblErrNumber, lblErrDescription;
    ui::CommandButton cmdContinue, cmdEnd;

    void cmdContinue_Click();
    void cmdEnd_Click();

protected:
    void Form_Load() override;

private:
    // Gives description and log line the height their texts need, and moves what stands below.
    void layOut();
};
