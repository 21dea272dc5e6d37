#include "command/Zone.h"

#include <algorithm>

#include "util/Error.h"
#include "util/characters.h"
#include "util/numbers.h"
#include "zones/Templates.h"
#include "zones/zones.h"

namespace command {

namespace {

void sortByName(std::vector<ListedValue>& values) {
    const auto less = [](const auto& a, const auto& b) { return util::compareFolded(a.name, b.name) < 0; };
    // Registries list names in this order, as a rule.
    if (!std::is_sorted(values.begin(), values.end(), less)) std::sort(values.begin(), values.end(), less);
}

[[noreturn]] void unreadable(const std::string& key) {
    throw util::Error(util::NumberFileAccess, "command",
                      "The registry key \"" + key + "\" cannot be read: look at its permissions.");
}

template <std::size_t N>
bool isOneOf(std::string_view name, const NamedValue (&known)[N]) {
    return std::any_of(known, known + N, [&](const NamedValue& v) { return util::equalFolded(name, v.value); });
}

// Collects what it is told.
class Description : public zones::SettingsVisitor {
public:
    Description(platform::Platform& platform, bool exported) : platform_(platform), exported_(exported) {}
    std::vector<SettingGroup> groups;

    void group(const std::string& text, const std::string&) override { groups.push_back({text, {}}); }
    void setting(const std::string& caption) override { groups.back().settings.push_back({caption, {}, {}}); }
    void option(const zones::Option& option) override {
        Setting& setting = groups.back().settings.back();
        if (setting.options.empty()) setting.valueName = option.valueName;
        setting.options.push_back(option);
    }
    // An export names files of its own machine. This system's own is as good, a path may lead to anywhere.
    std::string resolve(const std::string& reference) override {
        const bool path = reference.find_first_of("\\/:") != std::string::npos;
        return exported_ && path ? std::string() : zones::resourceText(platform_, reference);
    }

private:
    platform::Platform& platform_;
    bool exported_;
};

std::string levelText(std::uint32_t number) {
    const auto index = zones::levelIndex(number);
    return index ? zones::Levels[static_cast<std::size_t>(*index)].name : util::toDecimal(number);
}

}  // namespace

bool before(std::string_view a, std::string_view b) {
    const auto x = zones::numberOf(a), y = zones::numberOf(b);
    if (x && y) return *x < *y;
    if (x || y) return x.has_value();
    return util::compareFolded(a, b) < 0;
}

bool isSettingName(std::string_view name) {
    return !isOneOf(name, ZoneTexts) && !isOneOf(name, ZoneLevels) && !util::equalFolded(name, zones::value::Flags);
}

const ListedValue* Zone::find(std::string_view name) const {
    const auto less = [](const ListedValue& v, std::string_view n) { return util::compareFolded(v.name, n) < 0; };
    const auto found = std::lower_bound(values.begin(), values.end(), name, less);
    return found != values.end() && util::equalFolded(found->name, name) ? &*found : nullptr;
}

std::string Zone::name() const {
    const ListedValue* name = find(zones::value::DisplayName);
    return name ? name->text : std::string();
}

std::vector<Zone> readZones(clsRegistry& registry) {
    const clsRegistry::FailureWatch watch(registry);
    std::vector<Zone> zones;
    zones::goToZones(registry);
    for (const std::string& key : registry.DirKey().value_or(std::vector<std::string>())) {
        if (zones::goToZone(registry, key) != Found::Present) unreadable(zones::ZonesKey + ("\\" + key));
        zones.push_back({key, registry.DirValue().value_or(std::vector<ListedValue>())});
        if (watch.failed()) unreadable(zones::ZonesKey + ("\\" + key));
        sortByName(zones.back().values);
    }
    if (watch.failed()) unreadable(zones::ZonesKey);
    std::sort(zones.begin(), zones.end(), [](const Zone& a, const Zone& b) { return before(a.key, b.key); });
    return zones;
}

Zone readLevel(clsRegistry& registry, int level) {
    const clsRegistry::FailureWatch watch(registry);
    auto values = zones::templateOf(registry, level);
    if (watch.failed()) unreadable(zones::TemplatesKey);
    const std::string name = zones::Levels.at(static_cast<std::size_t>(level)).name;
    if (!values)
        throw util::Error(
            util::NumberFileNotFound, "command",
            "The level \"" + name + "\" has no template, which would be below \"" + zones::TemplatesKey + "\".");
    std::erase_if(*values, [](const ListedValue& v) { return !zones::isSetting(v); });
    sortByName(*values);
    return {{}, std::move(*values)};
}

void Words::add(platform::Platform& platform, clsRegistry& registry, bool exported) {
    const clsRegistry::FailureWatch watch(registry);
    Description read(platform, exported);
    zones::readSettings(registry, read);
    if (watch.failed()) unreadable(zones::SettingsKey);
    for (SettingGroup& group : read.groups) {
        std::erase_if(group.settings, [&](const Setting& setting) {
            return setting.valueName.empty() || settingOf(setting.valueName) != nullptr;
        });
        // The caption may stand in a program file that another machine has.
        for (Setting& setting : group.settings)
            if (setting.caption.empty()) setting.caption = setting.valueName;
        if (!group.settings.empty()) groups_.push_back(std::move(group));
    }
}

const Setting* Words::settingOf(std::string_view valueName) const {
    for (const SettingGroup& group : groups_)
        for (const Setting& setting : group.settings)
            if (util::equalFolded(setting.valueName, valueName)) return &setting;
    return nullptr;
}

std::string Words::meaning(std::string_view valueName, const ListedValue* value) const {
    if (!value) return Missing;
    if (value->type == ValueType::Binary) return "binary " + value->text;
    if (value->type == ValueType::String && isOneOf(valueName, ZoneTexts)) return value->text;
    if (!value->plainNumber) return "\"" + value->text + "\"";
    if (isOneOf(valueName, ZoneLevels)) return levelText(value->number);
    if (const Setting* setting = settingOf(valueName))
        for (const zones::Option& option : setting->options)
            if (option.number == value->number && util::equalFolded(option.valueName, valueName)) return option.text;
    return util::toDecimal(value->number);
}

}  // namespace command
