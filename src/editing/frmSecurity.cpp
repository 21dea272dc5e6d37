#include "editing/frmSecurity.h"

#include <vector>

#include "errors/messages.h"
#include "forms/ZoneChange.h"
#include "icons/ExtractIcon.h"
#include "ui/Layout.h"
#include "ui/TreeView.h"
#include "util/clsStrings.h"
#include "util/numbers.h"
#include "util/procedure.h"
#include "zones/Settings.h"
#include "zones/ZoneRecord.h"
#include "zones/zones.h"

namespace {

constexpr const char* NoString = "** ERROR Retrieving string - frmSecurity.ExtractString **";

using namespace ui::layout;
constexpr ui::Size Client{6000, 5640};
constexpr ui::Twips Inner = Client.width - 2 * Margin;
constexpr ui::Twips ButtonTop = Client.height - Margin - ButtonHeight;
constexpr ui::Twips TreeHeight = ButtonTop - 2 * Margin;

// What a click on an option writes, as its node's tag keeps it: "1201,3".
struct OptionTag {
    std::string valueName;
    std::uint32_t number = 0;

    std::string text() const { return valueName + "," + util::toDecimal(number); }
    static std::optional<OptionTag> of(const std::string& text) {
        clsStrings parts;
        parts.Initialise(text, ",");
        const auto number = util::wholeNumber(parts.ElementAsString(2));
        if (!number) return std::nullopt;
        return OptionTag{parts.ElementAsString(1), *number};
    }
};

}  // namespace

// The zone's values, in a session of their own. All options of a setting ask for the same one, which is read once.
struct frmSecurity::ZoneValues {
    ZoneValues(platform::Platform& platform, const std::string& zone) : session(platform) {
        const std::string key = zones::zoneAtIndex(session, zone);
        found = !key.empty() && zones::goToZone(session, key) == Found::Present;
    }

    clsRegistry session;
    clsRegistry::FailureWatch watch{session};
    bool found = false;
    std::string name;  // of the value that was read last, "" before
    std::optional<std::int32_t> number;
};

frmSecurity::frmSecurity(forms::Context& context, std::string zone, std::string shownName)
    : Form(context.platform.desktop, Kind::Dialog, "frmSecurity", "Custom Security", Client),
      TVMRTreeView1(*this, "TVMRTreeView1", {Margin, Margin, Inner, TreeHeight}),
      ilsGroups(*this, "ilsGroups", 16),
      picTemp(*this, "picTemp", {0, 0, 240, 240}),
      lblZone(*this, "lblZone", besideButton(Margin, Client.width - Margin - ButtonWidth, ButtonTop), shownName),
      cmdClose(*this, "cmdClose", {Client.width - Margin - ButtonWidth, ButtonTop, ButtonWidth, ButtonHeight}, "Close"),
      context_(context),
      zone_(std::move(zone)),
      shownName_(std::move(shownName)) {
    lblZone.makeOneLine();
    picTemp.setVisible(false);
    TVMRTreeView1.setImages(&ilsGroups);
    setDefaultButton(cmdClose);
    setCancelButton(cmdClose);

    TVMRTreeView1.onOptionClick = [this](int node) { TVMRTreeView1_OptionClick(node); };
    cmdClose.onClick = [this] { cmdClose_Click(); };
}

void frmSecurity::Form_Load() {
    procedure("frmSecurity.Form_Load", [&] { FillTree(); });
}

void frmSecurity::Form_Resize() {
    TVMRTreeView1.stretch(client().height - Margin - cmdClose.bounds().bottom());
}

void frmSecurity::cmdClose_Click() {
    procedure("frmSecurity.cmdClose_Click", [&] { unload(); });
}

// The tree ------------------------------------------------------------------------------------------------------

// Adds to the tree what the browser's description tells.
class frmSecurity::Filling : public zones::SettingsVisitor {
public:
    explicit Filling(frmSecurity& form) : values(form.context_.platform, form.zone_), form_(form) {}
    ZoneValues values;

    void group(const std::string& text, const std::string& bitmap) override {
        ui::TreeNode node;
        node.text = text;
        node.image = form_.AddPicture(bitmap);
        group_ = form_.TVMRTreeView1.add(node);
    }
    void setting(const std::string& caption) override {
        ui::TreeNode node;
        node.text = caption;
        node.parent = group_;
        setting_ = form_.TVMRTreeView1.add(node);
    }
    // With only a value's name or only a number it is shown, but there is nothing that a click could write. Value names
    // are hexadecimal numbers; a "," or a quote would take the tag apart at the wrong place.
    void option(const zones::Option& option) override {
        ui::TreeNode node;
        node.text = option.text;
        node.parent = setting_;
        if (option.number && !option.valueName.empty() && option.valueName.find_first_of(",\"") == std::string::npos) {
            node.option = true;
            node.tag = OptionTag{option.valueName, *option.number}.text();
            node.selected = form_.GetValue(values, option.valueName) == static_cast<std::int32_t>(*option.number);
        }
        form_.TVMRTreeView1.add(node);
    }
    std::string resolve(const std::string& reference) override { return form_.ExtractString(reference); }

private:
    frmSecurity& form_;
    int group_ = 0, setting_ = 0;
};

void frmSecurity::FillTree() {
    procedure("frmSecurity.FillTree", [&] {
        Filling filling(*this);
        const bool complete = zones::readSettings(context_.registry, filling);
        if (TVMRTreeView1.count() > 0) TVMRTreeView1.ensureVisible(1);
        if (!complete || filling.values.watch.failed())
            errors::tell(context_.platform, "Part of the settings could not be read. Not all of them are shown.");
    });
}

int frmSecurity::AddPicture(const std::string& bitmap) {
    if (bitmap.empty()) return 0;
    picTemp.setPicture(basMain::LoadPicture(context_.platform, ExpandPath(bitmap), ilsGroups.size()));
    return picTemp.picture().empty() ? 0 : ilsGroups.add(picTemp.picture());
}

std::string frmSecurity::ExpandPath(const std::string& path) {
    return procedure("frmSecurity.ExpandPath",
                     [&] { return context_.platform.system.ExpandEnvironmentStringsA(path); });
}

std::string frmSecurity::ExtractString(const std::string& reference) {
    return procedure("frmSecurity.ExtractString", [&]() -> std::string {
        const std::string text = zones::resourceText(context_.platform, reference);
        return text.empty() ? NoString : text;
    });
}

std::optional<std::int32_t> frmSecurity::GetValue(ZoneValues& values, const std::string& name) {
    return procedure("frmSecurity.GetValue", [&]() -> std::optional<std::int32_t> {
        if (!values.found) return std::nullopt;
        if (values.name != name) {
            const NumberReading stored = values.session.readNumber(name);
            values.number.reset();
            if (stored.present()) values.number = static_cast<std::int32_t>(stored.number);
            values.name = name;
        }
        return values.number;
    });
}

// An option -----------------------------------------------------------------------------------------------------

void frmSecurity::TVMRTreeView1_OptionClick(int node) {
    procedure("frmSecurity.TVMRTreeView1_OptionClick", [&] {
        const auto option = OptionTag::of(TVMRTreeView1.node(node).tag);
        if (!option) return;
        if (!forms::stillShown(context_, zone_, shownName_)) return MarkOptionsInForce();

        clsRegistry& registry = context_.registry;
        const bool written = forms::change(context_, zone_, [&] {
            zones::goToZone(registry, zone_);
            registry.writeNumber(zones::value::CurrentLevel, 0);
            registry.writeNumber(option->valueName, option->number);
        });
        ui::raise(onWritten);
        context_.mainWindow->UpdateLabels(zone_);
        if (!written) MarkOptionsInForce();
    });
}

// The click has marked an option that is not in force.
void frmSecurity::MarkOptionsInForce() {
    ZoneValues values(context_.platform, zone_);
    for (int node = 1; node <= TVMRTreeView1.count(); ++node) {
        const auto option = OptionTag::of(TVMRTreeView1.node(node).tag);
        if (!option) continue;
        if (GetValue(values, option->valueName) == static_cast<std::int32_t>(option->number)) {
            TVMRTreeView1.selectOption(node);
        } else {
            TVMRTreeView1.unselectOption(node);
        }
    }
}
