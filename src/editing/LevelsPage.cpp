#include "editing/LevelsPage.h"

namespace {

using namespace ui::layout;
constexpr ui::Twips FrameHeight = 825, LabelTop = 375, ComboHeight = 315, ButtonTop = 300;
constexpr ui::Twips NarrowWidth = ButtonWidth - 60;  // two of them in a row, inside the frame's line

}  // namespace

// Current: High    Change To: [Medium  v]  [Apply]
LevelFrames::LevelFrames(ui::Control& page)
    : zzzfraLevel("zzzfraLevel"), zzzlblLevel("zzzlblLevel"), cboSetting("cboSetting"), cmdApply("cmdApply") {
    for (const LevelRow& row : LevelRows) {
        const ui::Twips top = Margin + zzzfraLevel.size() * (FrameHeight + Margin);
        ui::Frame& frame = zzzfraLevel.add(page, {Margin, top, EditPageInner, FrameHeight}, row.caption);
        zzzlblLevel.add(frame, {Margin, LabelTop, 840, LabelHeight}, "Current:");
        stored.emplace_back(frame, row.labelName, ui::Bounds{960, LabelTop, 1080, LabelHeight},
                            stored.size() == CurrentLevel ? "" : zones::MissingLevel);
        zzzlblLevel.add(frame, {2040, LabelTop, 1155, LabelHeight}, "Change To:");
        cboSetting.add(frame, {3195, 330, 1245, ComboHeight});
        cmdApply.add(frame, {4470, ButtonTop, NarrowWidth, ButtonHeight}, "Apply");
    }
}

LevelsPage::LevelsPage(ui::Control& page)
    : LevelFrames(page),
      cmdSecurity(zzzfraLevel(CurrentLevel), "cmdSecurity", {5715, ButtonTop, NarrowWidth, ButtonHeight}, "Settings") {}

void LevelsPage::show(int index, std::uint32_t number) {
    const auto level = zones::levelIndex(number);
    if (!level) return;
    const bool custom = *level >= zones::OfferedLevels;
    if (custom && index != CurrentLevel) return;
    stored[static_cast<std::size_t>(index)].setCaption(zones::Levels[static_cast<std::size_t>(*level)].name);
    if (!custom) cboSetting(index).setListIndex(*level);
}

void LevelsPage::enableApply(int index) {
    const ui::ComboBox& box = cboSetting(index);
    const bool change = box.listIndex() >= 0 && box.text() != stored[static_cast<std::size_t>(index)].caption();
    cmdApply(index).setEnabled(change && reading.succeeded());
}
