#include "editing/frmEditPages.h"
#include "ui/Layout.h"

namespace {

using namespace ui::layout;
constexpr ui::Twips ComboHeight = 315;
constexpr ui::Twips Inner = PageSize.width - 2 * Margin;

constexpr ZoneDetails::Traces GeneralTraces{"frmEdit.txtZoneName_GotFocus", "frmEdit.txtZoneDescription_GotFocus",
                                            "frmEdit.picIcon_Click"};

// [Default] [Apply] at the lower right of a page.
void addButtons(ui::ControlArray<ui::CommandButton>& buttons, ui::Control& page) {
    const ui::Twips top = PageSize.height - Margin - ButtonHeight;
    const ui::Twips right = PageSize.width - Margin - ButtonWidth;
    buttons.add(page, {right - Margin - ButtonWidth, top, ButtonWidth, ButtonHeight}, "Default");
    buttons.add(page, {right, top, ButtonWidth, ButtonHeight}, "Apply");
}

}  // namespace

GeneralPage::GeneralPage(forms::Context& context, ui::Control& page)
    : details(context, page, PageSize.width, "<-- Click to change icon.", GeneralTraces), cmdGeneral("cmdGeneral") {
    addButtons(cmdGeneral, page);
}

// The highest bit's box stands first.
FlagsPage::FlagsPage(ui::Control& page) : chkProperties("chkProperties"), cmdFlags("cmdFlags") {
    constexpr ui::Twips Row = 315;
    constexpr int Last = static_cast<int>(zones::FlagCaptions.size()) - 1;
    for (int i = Last; i >= 0; --i) {
        const ui::Bounds bounds{Margin, Margin + (Last - i) * Row, Inner, BoxHeight};
        auto& box = chkProperties.addInFront(i, page, bounds, zones::FlagCaptions[static_cast<std::size_t>(i)]);
        box.setTag(std::to_string(1 << i));
    }
    addButtons(cmdFlags, page);
}

// Settings stands in the frame of the current level, which is the last.
LevelsPage::LevelsPage(ui::Control& page)
    : zzzfraLevel("zzzfraLevel"),
      zzzlblLevel("zzzlblLevel"),
      cboSetting("cboSetting"),
      cmdApply("cmdApply"),
      cmdSecurity(addFrames(page), "cmdSecurity", {5685, 300, ButtonWidth, ButtonHeight}, "Settings") {}

// Current: High    Change To: [Medium  v]  [Apply]
ui::Frame& LevelsPage::addFrames(ui::Control& page) {
    constexpr ui::Twips FrameHeight = 825, LabelTop = 375;
    for (const LevelRow& row : LevelRows) {
        const ui::Twips top = Margin + zzzfraLevel.size() * (FrameHeight + Margin);
        ui::Frame& frame = zzzfraLevel.add(page, {Margin, top, Inner, FrameHeight}, row.caption);
        zzzlblLevel.add(frame, {150, LabelTop, 720, LabelHeight}, "Current:");
        stored.emplace_back(frame, row.labelName, ui::Bounds{900, LabelTop, 1080, LabelHeight}, "");
        zzzlblLevel.add(frame, {2010, LabelTop, 930, LabelHeight}, "Change To:");
        cboSetting.add(frame, {2970, 330, 1275, ComboHeight});
        cmdApply.add(frame, {4350, 300, ButtonWidth, ButtonHeight}, "Apply");
    }
    return zzzfraLevel(CurrentLevel);
}
