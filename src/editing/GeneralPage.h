// The first page of the zone dialog: name, description and icon.
#pragma once

#include "editing/EditPage.h"
#include "editing/ZoneDetails.h"

struct GeneralPage {
    GeneralPage(forms::Context& context, ui::Control& page);

    ZoneDetails details;
    ui::ControlArray<ui::CommandButton> cmdGeneral;  // by PageButton
    PageReading reading;
};
