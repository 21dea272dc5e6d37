#include "editing/ZoneDetails.h"

#include "editing/GCommonDialog.h"
#include "errors/messages.h"
#include "icons/ExtractIcon.h"
#include "icons/frmIconSelector.h"
#include "ui/Layout.h"
#include "util/procedure.h"
#include "zones/Defaults.h"

namespace {

// The browser reads longer ones as empty.
constexpr int LongestName = 259, LongestDescription = 199;

using namespace ui::layout;
constexpr ui::Twips IconSize = 540;

void SelectText(ui::TextBox& box) {
    box.selectAll();
}

}  // namespace

ZoneDetails::ZoneDetails(forms::Context& context, ui::Parent parent, ui::Twips width, const char* hint,
                         const Traces& traces)
    // Zone Name
    // [................................]
    : zzzlblName(parent, "zzzlblName", {Margin, 120, width - 2 * Margin, LabelHeight}, "Zone Name"),
      txtZoneName(parent, "txtZoneName", {Margin, 345, width - 2 * Margin, BoxHeight}),
      // Zone Description
      // [................................]
      zzzlblDescription(parent, "zzzlblDescription", {Margin, 780, width - 2 * Margin, LabelHeight},
                        "Zone Description"),
      txtZoneDescription(parent, "txtZoneDescription", {Margin, 1005, width - 2 * Margin, BoxHeight}),
      // [icon]  <-- Click to change icon.
      picIcon(parent, "picIcon", {Margin, 1530, IconSize, IconSize}, ui::PictureBox::Border::Sunken),
      zzzlblHint(parent, "zzzlblHint", {780, 1688, width - 780 - Margin, LabelHeight}, hint),
      context_(context) {
    txtZoneName.setMaxLength(LongestName);
    txtZoneDescription.setMaxLength(LongestDescription);
    picIcon.setTabStop(true);

    txtZoneName.onGotFocus = [this, traces] { procedure(traces.nameGotFocus, [&] { SelectText(txtZoneName); }); };
    txtZoneDescription.onGotFocus = [this, traces] {
        procedure(traces.descriptionGotFocus, [&] { SelectText(txtZoneDescription); });
    };
    picIcon.onClick = [this, traces] { procedure(traces.iconClick, [&] { ChooseIcon(); }); };
}

void ZoneDetails::DrawIcon(const std::string& reference) {
    basMain::ExtractIcon(context_.platform, reference, "#", 32, picIcon);
}

bool ZoneDetails::Complete() {
    if (selection.iconFile.empty()) {
        selection.iconFile = zones::fallbackIconFile(context_.platform);
        selection.iconResource = zones::FallbackIconResource;
    }
    return Given(txtZoneName, "You must give this zone a name.") &&
           Given(txtZoneDescription, "You must give this zone a description.");
}

bool ZoneDetails::Given(ui::TextBox& box, const char* message) {
    if (box.text().find_first_not_of(' ') != std::string::npos) return true;
    errors::tell(context_.platform, message);
    box.setFocus();
    SelectText(box);  // also when the box had the focus all the time
    return false;
}

void ZoneDetails::Write() {
    clsRegistry& registry = context_.registry;
    registry.writeText(zones::value::DisplayName, txtZoneName.text());
    registry.writeText(zones::value::Description, txtZoneDescription.text());
    registry.writeText(zones::value::Icon, selection.iconFile + "#" + selection.iconResource);
}

void ZoneDetails::ChooseIcon() {
    const auto file = GCommonDialog::BrowseForIcons(context_.platform, selection.iconFile);
    if (!file) return;
    frmIconSelector selector(context_.platform, *file, picIcon, [this](const auto& chosenFile, const auto& resource) {
        selection.iconFile = chosenFile;
        selection.iconResource = resource;
    });
    selector.showModal(&picIcon.form());
}
