// The third page of the zone dialog: the recommended, the minimum and the current security level.
#pragma once

#include <array>
#include <deque>

#include "editing/EditPage.h"
#include "ui/ComboBox.h"
#include "ui/Frame.h"
#include "ui/Label.h"
#include "zones/zones.h"

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

// Each level's frame with what stands in it, by LevelIndex.
struct LevelFrames {
    explicit LevelFrames(ui::Control& page);

    ui::ControlArray<ui::Frame> zzzfraLevel;
    ui::ControlArray<ui::Label> zzzlblLevel;  // two in each frame
    std::deque<ui::Label> stored;             // the level as it is stored: lblRecCurrent, lblMinCurrent, lblCurrent
    ui::ControlArray<ui::ComboBox> cboSetting;
    ui::ControlArray<ui::CommandButton> cmdApply;
};

struct LevelsPage : LevelFrames {
    explicit LevelsPage(ui::Control& page);

    // Shows a stored level. One that is none of those that can be chosen leaves label and box as they are.
    void show(int index, std::uint32_t number);
    // A level that is stored already, or could not be read, is not to be applied.
    void enableApply(int index);

    ui::CommandButton cmdSecurity;  // in the frame of the current level
    PageReading reading;
};
