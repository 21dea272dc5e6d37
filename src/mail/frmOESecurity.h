// Shows the zone that an identity of the mail client reads its mail in, and changes it with one click.
#pragma once

#include "forms/Context.h"
#include "forms/ZoneList.h"
#include "ui/ControlArray.h"
#include "ui/Form.h"
#include "ui/Image.h"
#include "ui/ImageList.h"
#include "ui/Label.h"
#include "ui/ListView.h"

class frmOESecurity : public ui::Form {
public:
    explicit frmOESecurity(forms::Context& context);

    // The full path of the identity's mail settings.
    std::string IdentityPath;

    ui::Label lblIdentity;  // whose window this is
    ui::ControlArray<ui::Label> lblInfo;
    ui::Label lblZone;
    ui::ImageList ilsZoneIcons;
    ui::ListView lsvOEZones;
    ui::Image picDummy, picHolder;

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void FillList();
    void lsvOEZones_ItemClick(int item);
    forms::ZoneListControls zoneList() { return {lsvOEZones, ilsZoneIcons, picDummy, picHolder}; }

    forms::Context& context_;
};
