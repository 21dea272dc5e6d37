// The controls of the zone dialog's pages, and where they stand.
#pragma once

#include <array>
#include <deque>

#include "editing/ZoneDetails.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/CommandButton.h"
#include "ui/ControlArray.h"
#include "ui/Frame.h"
#include "ui/Label.h"

// The drawing area of every page.
inline constexpr ui::Size PageSize{7290, 3195};

struct GeneralPage {
    GeneralPage(forms::Context& context, ui::Control& page);

    ZoneDetails details;
    ui::ControlArray<ui::CommandButton> cmdGeneral;  // 0 "Default", 1 "Apply"
};

struct FlagsPage {
    explicit FlagsPage(ui::Control& page);

    ui::ControlArray<ui::CheckBox> chkProperties;  // box i stands for bit 2^i, which is its tag
    ui::ControlArray<ui::CommandButton> cmdFlags;  // 0 "Default", 1 "Apply"
};

// The three levels of a zone, in the order of the page.
struct LevelRow {
    const char* caption;
    const char* labelName;
    const char* value;  // in the zone's key
};
inline constexpr std::array<LevelRow, 3> LevelRows{{
    {"Recommended Level", "lblRecCurrent", zones::value::RecommendedLevel},
    {"Minimum Level", "lblMinCurrent", zones::value::MinLevel},
    {"Current Level", "lblCurrent", zones::value::CurrentLevel},
}};
enum LevelIndex { RecommendedLevel, MinimumLevel, CurrentLevel };

struct LevelsPage {
    explicit LevelsPage(ui::Control& page);

    ui::ControlArray<ui::Frame> zzzfraLevel;
    ui::ControlArray<ui::Label> zzzlblLevel;
    std::deque<ui::Label> stored;  // the level as it is stored: lblRecCurrent, lblMinCurrent, lblCurrent
    ui::ControlArray<ui::ComboBox> cboSetting;
    ui::ControlArray<ui::CommandButton> cmdApply;
    ui::CommandButton cmdSecurity;

private:
    ui::Frame& addFrames(ui::Control& page);
};
