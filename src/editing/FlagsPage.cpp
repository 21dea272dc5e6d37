#include "editing/FlagsPage.h"

#include "util/numbers.h"
#include "zones/zones.h"

// The highest bit's box stands first.
FlagsPage::FlagsPage(ui::Control& page) : chkProperties("chkProperties"), cmdFlags("cmdFlags") {
    using namespace ui::layout;
    constexpr ui::Twips Row = 315, TwoLines = 420;
    constexpr std::size_t OneLine = 60;  // characters
    ui::Twips top = Margin;
    constexpr int Last = static_cast<int>(zones::FlagCaptions.size()) - 1;
    for (int i = Last; i >= 0; --i) {
        const std::string caption = zones::FlagCaptions[static_cast<std::size_t>(i)];
        const ui::Twips row = caption.size() > OneLine ? TwoLines : Row;
        auto& box = chkProperties.addInFront(i, page, {Margin, top, EditPageInner, row - (Row - BoxHeight)}, caption);
        top += row;
        box.setTag(util::toDecimal(1u << i));
    }
    addPageButtons(cmdFlags, page);
}

void FlagsPage::show(std::uint32_t bits) {
    for (int i = 0; i < chkProperties.size(); ++i) chkProperties(i).setChecked((bits >> i & 1) != 0);
}

std::uint32_t FlagsPage::shown() const {
    std::uint32_t bits = 0;
    for (int i = 0; i < chkProperties.size(); ++i)
        if (chkProperties(i).checked()) bits |= 1u << i;
    return bits;
}
