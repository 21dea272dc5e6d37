// The dialog for the single security settings of a zone.
//
// It knows no setting itself: groups, settings and options come from the browser's own description of them in the
// registry. An option that is clicked is written at once.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "editing/TVMRTreeView.h"
#include "forms/Context.h"
#include "ui/CommandButton.h"
#include "ui/Form.h"
#include "ui/Image.h"
#include "ui/ImageList.h"
#include "ui/Label.h"

class frmSecurity : public ui::Form {
public:
    // For the zone that the user knows by the name `shownName`.
    frmSecurity(forms::Context& context, std::string zone, std::string shownName);

    // Raised after a setting has been written: the zone's level is custom now.
    ui::Event onWritten;

    TVMRTreeView TVMRTreeView1;
    ui::ImageList ilsGroups;
    ui::Image picTemp;  // hidden: each group's picture is loaded here on its way into the image list
    ui::Label lblZone;
    ui::CommandButton cmdClose;

    // Resolves "@file,-number" in the string resources of a program file. Returns a text that says so when there is
    // no such string.
    std::string ExtractString(const std::string& reference);
    std::string ExpandPath(const std::string& path);

protected:
    void Form_Load() override;
    void Form_Resize() override;

private:
    class Filling;
    struct ZoneValues;

    void FillTree();
    int AddPicture(const std::string& bitmap);
    std::optional<std::int32_t> GetValue(ZoneValues& values, const std::string& name);
    void TVMRTreeView1_OptionClick(int node);
    void MarkOptionsInForce();
    void cmdClose_Click();

    forms::Context& context_;
    std::string zone_, shownName_;
};
