// The second page of the zone dialog: a box for each flag.
#pragma once

#include <cstdint>

#include "editing/EditPage.h"
#include "ui/CheckBox.h"

struct FlagsPage {
    explicit FlagsPage(ui::Control& page);

    void show(std::uint32_t bits);
    std::uint32_t shown() const;  // the boxes are all there is: bits beyond them are not kept

    ui::ControlArray<ui::CheckBox> chkProperties;  // box i stands for bit 2^i, which is its tag
    ui::ControlArray<ui::CommandButton> cmdFlags;  // by PageButton
    PageReading reading;
};
