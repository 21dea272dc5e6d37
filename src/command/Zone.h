// Zones as the program compares and shows them: read whole, whatever registry they come from.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "registry/clsRegistry.h"
#include "zones/Settings.h"

namespace command {

struct Zone {
    std::string key;                  // its name below the zones key; of a level ""
    std::vector<ListedValue> values;  // in the order of their names, without regard to case

    const ListedValue* find(std::string_view name) const;
    std::string name() const;  // "" when it has none
};

// The order of zones by their keys: numbers by their size, anything else behind them.
bool before(std::string_view a, std::string_view b);
// All zones, in this order. Throws util::Error when something cannot be read.
std::vector<Zone> readZones(clsRegistry& registry);
// The settings of a level by its template. Throws util::Error when there is none.
Zone readLevel(clsRegistry& registry, int level);

// A setting as the browser describes it, and the value of a zone that holds it.
struct Setting {
    std::string caption;
    std::string valueName;
    std::vector<zones::Option> options;
};
struct SettingGroup {
    std::string text;
    std::vector<Setting> settings;
};

// What values are called and what they mean, in words.
class Words {
public:
    // Adds the descriptions of the settings that a registry has; `exported`: another machine's. What is known already
    // stays. Throws util::Error when they cannot be read.
    void add(platform::Platform& platform, clsRegistry& registry, bool exported);

    const std::vector<SettingGroup>& groups() const { return groups_; }
    // The setting that a value of a zone belongs to; null for one that no description knows.
    const Setting* settingOf(std::string_view valueName) const;
    // What a zone's value means: a level's name, an option's text, or else the number or text itself. "(missing)" for
    // null.
    std::string meaning(std::string_view valueName, const ListedValue* value) const;

private:
    std::vector<SettingGroup> groups_;
};

// The values of a zone that are no settings, in the order in which they are shown, and what they are called.
struct NamedValue {
    const char* value;
    const char* caption;
};
inline constexpr NamedValue ZoneTexts[] = {{"DisplayName", "Name"}, {"Description", "Description"}, {"Icon", "Icon"}};
inline constexpr NamedValue ZoneLevels[] = {
    {"CurrentLevel", "Current level"}, {"MinLevel", "Minimum level"}, {"RecommendedLevel", "Recommended level"}};

// Whether a value is none of the above, nor the flags.
bool isSettingName(std::string_view name);

inline constexpr const char* Missing = "(missing)";

}  // namespace command
