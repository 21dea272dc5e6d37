#include "editing/LevelsPage.h"

namespace {

using namespace ui::layout;
constexpr ui::Twips FrameHeight = 825, LabelTop = 375, ComboHeight = 315, ButtonTop = 300;

}  // namespace

// Current: High    Change To: [Medium  v]  [Apply]
LevelFrames::LevelFrames(ui::Control& page)
    : zzzfraLevel("zzzfraLevel"), zzzlblLevel("zzzlblLevel"), cboSetting("cboSetting"), cmdApply("cmdApply") {
    for (const LevelRow& row : LevelRows) {
        const ui::Twips top = Margin + zzzfraLevel.size() * (FrameHeight + Margin);
        ui::Frame& frame = zzzfraLevel.add(page, {Margin, top, EditPageInner, FrameHeight}, row.caption);
        zzzlblLevel.add(frame, {150, LabelTop, 720, LabelHeight}, "Current:");
        stored.emplace_back(frame, row.labelName, ui::Bounds{900, LabelTop, 1080, LabelHeight}, "");
        zzzlblLevel.add(frame, {2010, LabelTop, 930, LabelHeight}, "Change To:");
        cboSetting.add(frame, {2970, 330, 1275, ComboHeight});
        cmdApply.add(frame, {4350, ButtonTop, ButtonWidth, ButtonHeight}, "Apply");
    }
}

LevelsPage::LevelsPage(ui::Control& page)
    : LevelFrames(page),
      cmdSecurity(zzzfraLevel(CurrentLevel), "cmdSecurity", {5685, ButtonTop, ButtonWidth, ButtonHeight}, "Settings") {}

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
