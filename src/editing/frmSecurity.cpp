#include "editing/frmSecurity.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

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

std::string textOf(clsRegistry& registry, const char* name) {
    return registry.readText(name).text;
}

// Runs `visit` with the session in each subkey in turn.
template <class Visit>
void forEachKey(clsRegistry& registry, Visit visit) {
    const auto keys = registry.DirKey();
    if (!keys) return;
    for (const std::string& key : *keys) {
        if (key == SkippedKey) continue;
        registry.cD(key + "\\");  // a blank behind a key's name counts
        visit();
        registry.cD("..");
    }
}

}  // namespace

// The zone's values while the tree is being filled: a session of their own, as the shared one stands among
// the settings then, and each value read once for all options of its setting.
struct frmSecurity::ZoneValues {
    ZoneValues(platform::Platform& platform, const std::string& zone) : session(platform) {
        const std::string place = zones::zoneAtPlace(session, zone);
        found = !place.empty() && zones::goToZone(session, place) == Found::Present;
    }

    clsRegistry session;
    bool found = false;
    std::unordered_map<std::string, std::optional<std::int32_t>> read;
};

frmSecurity::frmSecurity(forms::Context& context, std::string zone)
    : Form(context.platform.desktop, Kind::Dialog, "frmSecurity", "Custom Security", Client),
      TVMRTreeView1(*this, "TVMRTreeView1", {Margin, Margin, Inner, TreeHeight}),
      ilsGroups(*this, "ilsGroups", 16),
      picTemp(*this, "picTemp", {0, 0, 240, 240}),
      cmdClose(*this, "cmdClose", {Client.width - Margin - ButtonWidth, ButtonTop, ButtonWidth, ButtonHeight}, "Close"),
      context_(context),
      zone_(std::move(zone)) {
    picTemp.setVisible(false);
    TVMRTreeView1.setImages(&ilsGroups);
    setDefaultButton(cmdClose);
    setCancelButton(cmdClose);

    TVMRTreeView1.onOptionClick = [this](int node) { TVMRTreeView1_OptionClick(node); };
    cmdClose.onClick = [this] { cmdClose_Click(); };
}

void frmSecurity::Form_Load() {
    procedure("frmSecurity.Form_Load", [&] {
        FillTree();
        if (TVMRTreeView1.count() > 0) TVMRTreeView1.ensureVisible(1);
    });
}

void frmSecurity::cmdClose_Click() {
    procedure("frmSecurity.cmdClose_Click", [&] { unload(); });
}

// The tree ------------------------------------------------------------------------------------------------------

void frmSecurity::FillTree() {
    procedure("frmSecurity.FillTree", [&] {
        ZoneValues values(context_.platform, zone_);
        clsRegistry& registry = context_.registry;
        registry.goTo(SettingsKey);
        forEachKey(registry, [&] { AddGroup(values); });
    });
}

void frmSecurity::AddGroup(ZoneValues& values) {
    clsRegistry& registry = context_.registry;
    ui::TreeNode group;
    group.text = textOf(registry, "Text");
    group.image = AddPicture(textOf(registry, "Bitmap"));
    const int number = TVMRTreeView1.add(group);
    forEachKey(registry, [&] { AddSetting(values, number); });
}

void frmSecurity::AddSetting(ZoneValues& values, int group) {
    ui::TreeNode setting;
    setting.text = SettingCaption();
    setting.parent = group;
    const int number = TVMRTreeView1.add(setting);
    forEachKey(context_.registry, [&] { AddOption(values, number); });
}

// A caption that begins with "%" only stands for the text in the browser's resources.
std::string frmSecurity::SettingCaption() {
    std::string text = textOf(context_.registry, "Text");
    if (!text.empty() && text.front() != '%') return text;
    const std::string reference = textOf(context_.registry, "PlugUIText");
    return text.empty() && reference.empty() ? text : ExtractString(reference);
}

// What has neither a value's name nor a number is no option but a deeper branch of a longer tree. With only one of
// them it is shown, but there is nothing that a click could write. Value names are hexadecimal numbers; a "," or a
// quote would take the tag apart at the wrong place.
void frmSecurity::AddOption(ZoneValues& values, int setting) {
    clsRegistry& registry = context_.registry;
    const std::string name = textOf(registry, "ValueName");
    const NumberReading checked = registry.readNumber("CheckedValue");
    if (name.empty() && checked.found == Found::Absent) return;

    ui::TreeNode option;
    option.text = textOf(registry, "Text");
    option.parent = setting;
    if (checked.present() && !name.empty() && name.find_first_of(",\"") == std::string::npos) {
        option.option = true;
        option.tag = name + "," + checked.display;
        option.selected = GetValue(values, name) == static_cast<std::int32_t>(checked.number);
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
        clsStrings tag;
        tag.Initialise(TVMRTreeView1.node(node).tag, ",");
        const std::string name = tag.ElementAsString(1);
        const auto number = util::wholeNumber(tag.ElementAsString(2));
        if (!number) return;

        clsRegistry& registry = context_.registry;
        const bool written = forms::change(context_, zone_, [&] {
            zones::goToZone(registry, zone_);
            registry.writeNumber(zones::value::CurrentLevel, 0);
            registry.writeNumber(name, *number);
        });
        ui::raise(onWritten);
        context_.mainWindow->UpdateLabels(zone_);
        if (written) return;
        // The option is not in force: show what is.
        TVMRTreeView1.clear();
        ilsGroups.clear();
        FillTree();
    });
}
