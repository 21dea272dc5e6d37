#include "editing/ZoneDetails.h"

#include "editing/GCommonDialog.h"
#include "errors/messages.h"
#include "forms/ZoneList.h"
#include "icons/ExtractIcon.h"
#include "icons/frmIconSelector.h"
#include "ui/Layout.h"
#include "util/numbers.h"
#include "util/procedure.h"
#include "zones/zones.h"

namespace {

// The browser reads longer ones as empty.
constexpr int LongestName = 259, LongestDescription = 199;

using namespace ui::layout;
constexpr ui::Twips IconSize = 540;

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
      picIcon(parent, "picIcon", {Margin, 1530, IconSize, IconSize}, "Zone icon"),
      zzzlblHint(parent, "zzzlblHint", {780, 1688, width - 780 - Margin, LabelHeight}, hint),
      context_(context) {
    txtZoneName.setMaxLength(LongestName);
    txtZoneDescription.setMaxLength(LongestDescription);

    txtZoneName.onGotFocus = [this, traces] { procedure(traces.nameGotFocus, [&] { txtZoneName.selectAll(); }); };
    txtZoneDescription.onGotFocus = [this, traces] {
        procedure(traces.descriptionGotFocus, [&] { txtZoneDescription.selectAll(); });
    };
    picIcon.onClick = [this, traces] { procedure(traces.iconClick, [&] { ChooseIcon(); }); };
}

void ZoneDetails::Show(const zones::ZoneTexts& texts) {
    txtZoneName.setText(forms::textOr(texts.name, forms::MissingName));
    txtZoneDescription.setText(forms::textOr(texts.description, forms::MissingDescription));
    const auto stored = icons::parseReference(texts.icon.text);
    writesIcon_ = !stored || !stored->isUsable();
    icon_ = writesIcon_ ? icons::IconReference{} : *stored;
    DrawIcon(icons::referenceOrDefault(context_.platform, texts.icon.text).text());
}

void ZoneDetails::ShowDefaults(const zones::BuiltInZone& defaults) {
    txtZoneName.setText(defaults.name);
    txtZoneDescription.setText(defaults.description);
    UseIcon({defaults.iconFile, defaults.iconResource});
    DrawIcon(icon_.text());
}

void ZoneDetails::DrawIcon(const std::string& reference) {
    basMain::ExtractIcon(context_.platform, reference, "#", 32, picIcon);
}

void ZoneDetails::UseIcon(icons::IconReference icon) {
    icon_ = std::move(icon);
    writesIcon_ = true;
}

bool ZoneDetails::Complete() {
    if (icon_.file.empty()) UseIcon({zones::fallbackIconFile(context_.platform), zones::FallbackIconResource});
    return Given(txtZoneName, "You must give this zone a name.") &&
           Given(txtZoneDescription, "You must give this zone a description.");
}

bool ZoneDetails::Given(ui::TextBox& box, const char* message) {
    if (box.text().find_first_not_of(' ') != std::string::npos) return true;
    Refuse(box, message);
    return false;
}

bool ZoneDetails::Fits() {
    return ShortEnough(txtZoneName, "name") && ShortEnough(txtZoneDescription, "description");
}

// The boxes let nobody type more, but a stored text is shown whole.
bool ZoneDetails::ShortEnough(ui::TextBox& box, const char* what) {
    if (box.text().size() <= static_cast<std::size_t>(box.maxLength())) return true;
    Refuse(box, std::string("The ") + what + " is too long. Internet Explorer reads one of more than " +
                    util::toDecimal(static_cast<std::uint32_t>(box.maxLength())) + " characters as empty.");
    return false;
}

void ZoneDetails::Refuse(ui::TextBox& box, const std::string& message) {
    errors::tell(context_.platform, message);
    box.setFocus();
    box.selectAll();  // also when the box had the focus all the time
}

void ZoneDetails::Write() {
    clsRegistry& registry = context_.registry;
    registry.writeText(zones::value::DisplayName, txtZoneName.text());
    registry.writeText(zones::value::Description, txtZoneDescription.text());
    if (writesIcon_) registry.writeText(zones::value::Icon, icon_.text());
}

void ZoneDetails::ChooseIcon() {
    const auto file = GCommonDialog::BrowseForIcons(context_.platform, icon_.file);
    if (!file) return;
    if (file->find('#') != std::string::npos) {
        errors::tell(context_.platform, "The icons of \"" + *file +
                                            "\" cannot be used: the path contains a \"#\", after which Internet "
                                            "Explorer expects the number of an icon.");
        return;
    }
    frmIconSelector selector(context_.platform, *file, picIcon,
                             [this](const icons::IconReference& chosen) { UseIcon(chosen); });
    selector.showModal(&picIcon.form());
}
