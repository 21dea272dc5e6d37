// The browser's own description of the settings that a zone has: groups, in them settings, in them the options that a
// person chooses from.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

class clsRegistry;
namespace platform {
struct Platform;
}

namespace zones {

// Below it groups, below them settings, below them options.
inline constexpr const char* SettingsKey =
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\SO";

struct Option {
    std::string text;
    std::string valueName;  // of the zone's value that the option sets, "" when it is not told
    std::optional<std::uint32_t> number;
};

// Is told of everything in the registry's order: of a group before its settings, of a setting before its options.
class SettingsVisitor {
public:
    virtual ~SettingsVisitor() = default;

    // `bitmap`: the reference of the group's picture, with environment variables.
    virtual void group(const std::string& text, const std::string& bitmap) = 0;
    virtual void setting(const std::string& caption) = 0;
    virtual void option(const Option& option) = 0;
    // The text of a caption that only refers to the browser's resources.
    virtual std::string resolve(const std::string& reference) = 0;
};

// Resolves "@file,-number" in the string resources of a program file; "" when there is no such string.
std::string resourceText(platform::Platform& platform, const std::string& reference);

// Reads the description. False when something could not be read.
bool readSettings(clsRegistry& registry, SettingsVisitor& visitor);

}  // namespace zones
