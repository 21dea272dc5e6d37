#include "editing/frmSecurity.h"

#include <unordered_map>
#include <vector>

#include "errors/messages.h"
#include "forms/ZoneChange.h"
#include "icons/ExtractIcon.h"
#include "ui/Layout.h"
#include "ui/TreeView.h"
#include "util/clsStrings.h"
#include "util/numbers.h"
#include "util/procedure.h"
#include "zones/ZoneRecord.h"
#include "zones/zones.h"

namespace {

// The browser's description of its settings: below it groups, below them settings, below them options.
constexpr const char* SettingsKey =
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\SO";
// The settings of the browser's own Java are never offered.
constexpr const char* SkippedKey = "Microsoft VM";
constexpr const char* NoString = "** ERROR Retrieving string - frmSecurity.ExtractString **";

using namespace ui::layout;
constexpr ui::Size Client{6000, 5640};
constexpr ui::Twips Inner = Client.width - 2 * Margin;
constexpr ui::Twips ButtonTop = Client.height - Margin - ButtonHeight;
constexpr ui::Twips TreeHeight = ButtonTop - 2 * Margin;

// The values of a group, a setting and an option.
namespace value {
constexpr const char* Text = "Text";
constexpr const char* PlugUIText = "PlugUIText";
constexpr const char* Bitmap = "Bitmap";
constexpr const char* ValueName = "ValueName";
constexpr const char* CheckedValue = "CheckedValue";
}  // namespace value

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

// The zone's values. They have a session of their own, because the shared one is at the settings' keys while the tree
// is filled. Each value is read once for all options of its setting.
struct frmSecurity::ZoneValues {
    ZoneValues(platform::Platform& platform, const std::string& zone) : session(platform) {
        const std::string key = zones::zoneAtIndex(session, zone);
        found = !key.empty() && zones::goToZone(session, key) == Found::Present;
    }

    clsRegistry session;
    clsRegistry::FailureWatch watch{session};
    bool found = false;
    std::unordered_map<std::string, std::optional<std::int32_t>> read;
};

struct frmSecurity::Filling {
    Filling(forms::Context& context, const std::string& zone)
        : registry(context.registry), values(context.platform, zone) {}

    clsRegistry& registry;
    clsRegistry::FailureWatch watch{registry};
    ZoneValues values;
    bool passedOver = false;

    bool complete() const { return !passedOver && !watch.failed() && !values.watch.failed(); }

    // Calls `visit` with the path of each key below `path`, the session standing in it. A name that the code page
    // cannot carry is listed, but leads to no key.
    template <class Visit>
    void forEachKey(const std::string& path, Visit visit) {
        const auto keys = registry.DirKey();
        if (!keys) return;
        for (const std::string& key : *keys) {
            if (key == SkippedKey) continue;
            const std::string below = path + "\\" + key;
            if (registry.goTo(below) == Found::Present) {
                visit(below);
            } else {
                passedOver = true;
            }
        }
    }
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

void frmSecurity::cmdClose_Click() {
    procedure("frmSecurity.cmdClose_Click", [&] { unload(); });
}

// The tree ------------------------------------------------------------------------------------------------------

void frmSecurity::FillTree() {
    procedure("frmSecurity.FillTree", [&] {
        Filling filling(context_, zone_);
        context_.registry.goTo(SettingsKey);
        filling.forEachKey(SettingsKey, [&](const std::string& path) { AddGroup(filling, path); });
        if (TVMRTreeView1.count() > 0) TVMRTreeView1.ensureVisible(1);
        if (!filling.complete())
            errors::tell(context_.platform, "Part of the settings could not be read. Not all of them are shown.");
    });
}

void frmSecurity::AddGroup(Filling& filling, const std::string& path) {
    clsRegistry& registry = context_.registry;
    ui::TreeNode group;
    group.text = registry.readText(value::Text).text;
    group.image = AddPicture(registry.readText(value::Bitmap).text);
    const int number = TVMRTreeView1.add(group);
    filling.forEachKey(path, [&](const std::string& below) { AddSetting(filling, below, number); });
}

void frmSecurity::AddSetting(Filling& filling, const std::string& path, int group) {
    ui::TreeNode setting;
    setting.text = SettingCaption();
    setting.parent = group;
    const int number = TVMRTreeView1.add(setting);
    filling.forEachKey(path, [&](const std::string&) { AddOption(filling, number); });
}

// A caption that begins with "%" only stands for the text in the browser's resources.
std::string frmSecurity::SettingCaption() {
    const std::string text = context_.registry.readText(value::Text).text;
    if (!text.empty() && text.front() != '%') return text;
    const std::string reference = context_.registry.readText(value::PlugUIText).text;
    return text.empty() && reference.empty() ? text : ExtractString(reference);
}

// What has neither a value's name nor a number is no option but a deeper branch of a longer tree. With only one of
// them it is shown, but there is nothing that a click could write. Value names are hexadecimal numbers; a "," or a
// quote would take the tag apart at the wrong place.
void frmSecurity::AddOption(Filling& filling, int setting) {
    clsRegistry& registry = context_.registry;
    const std::string name = registry.readText(value::ValueName).text;
    const NumberReading checked = registry.readNumberOfAnyType(value::CheckedValue);
    if (name.empty() && checked.found == Found::Absent) return;

    ui::TreeNode option;
    option.text = registry.readText(value::Text).text;
    option.parent = setting;
    if (checked.present() && !name.empty() && name.find_first_of(",\"") == std::string::npos) {
        option.option = true;
        option.tag = OptionTag{name, checked.number}.text();
        option.selected = GetValue(filling.values, name) == static_cast<std::int32_t>(checked.number);
    }
    TVMRTreeView1.add(option);
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
        if (reference.empty() || reference.find('"') != std::string::npos) return NoString;  // no file has quotes
        clsStrings parts;
        parts.Initialise(reference.substr(1), ",");
        const std::string file = parts.ElementAsString(1);
        const std::string number = parts.ElementAsString(2);
        const auto id = number.empty() ? std::nullopt : util::wholeNumber(number.substr(1));
        platform::Modules& modules = context_.platform.modules;
        const platform::Module module = id ? modules.LoadLibraryExA(file) : 0;
        if (!module) return NoString;
        std::string text = modules.LoadStringA(module, *id);
        modules.FreeLibrary(module);
        return text.empty() ? NoString : text;
    });
}

std::optional<std::int32_t> frmSecurity::GetValue(ZoneValues& values, const std::string& name) {
    return procedure("frmSecurity.GetValue", [&]() -> std::optional<std::int32_t> {
        if (!values.found) return std::nullopt;
        const auto [entry, isNew] = values.read.try_emplace(name);
        if (isNew) {
            const NumberReading stored = values.session.readNumber(name);
            if (stored.present()) entry->second = static_cast<std::int32_t>(stored.number);
        }
        return entry->second;
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
