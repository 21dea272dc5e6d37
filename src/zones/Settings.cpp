#include "zones/Settings.h"

#include "platform/Platform.h"
#include "registry/clsRegistry.h"
#include "util/clsStrings.h"
#include "util/numbers.h"

namespace zones {
namespace {

// The settings of the browser's own Java are never offered.
constexpr const char* SkippedKey = "Microsoft VM";

// The values of a group, a setting and an option.
namespace value {
constexpr const char* Text = "Text";
constexpr const char* PlugUIText = "PlugUIText";
constexpr const char* Bitmap = "Bitmap";
constexpr const char* ValueName = "ValueName";
constexpr const char* CheckedValue = "CheckedValue";
}  // namespace value

class Reader {
public:
    Reader(clsRegistry& registry, SettingsVisitor& visitor) : registry_(registry), visitor_(visitor) {}

    bool read() {
        const clsRegistry::FailureWatch watch(registry_);
        registry_.goTo(SettingsKey);
        readBelow(SettingsKey, &Reader::readGroup);
        return !passedOver_ && !watch.failed();
    }

private:
    // Calls `readOne` with the path of each key below `path`, the session standing in it. A name that the code page
    // cannot carry is listed, but leads to no key.
    void readBelow(const std::string& path, void (Reader::*readOne)(const std::string& path)) {
        const auto keys = registry_.DirKey();
        if (!keys) return;
        for (const std::string& key : *keys) {
            if (key == SkippedKey) continue;
            const std::string below = path + "\\" + key;
            if (registry_.goTo(below) == Found::Present)
                (this->*readOne)(below);
            else
                passedOver_ = true;
        }
    }

    void readGroup(const std::string& path) {
        const std::string text = registry_.readText(value::Text).text;
        visitor_.group(text, registry_.readText(value::Bitmap).text);
        readBelow(path, &Reader::readSetting);
    }

    void readSetting(const std::string& path) {
        visitor_.setting(caption());
        readBelow(path, &Reader::readOption);
    }

    // A caption that begins with "%" only stands for the text in the browser's resources.
    std::string caption() {
        std::string text = registry_.readText(value::Text).text;
        if (!text.empty() && text.front() != '%') return text;
        const std::string reference = registry_.readText(value::PlugUIText).text;
        return text.empty() && reference.empty() ? text : visitor_.resolve(reference);
    }

    // What has neither a value's name nor a number is no option but a deeper branch of a longer tree.
    void readOption(const std::string&) {
        Option option{{}, registry_.readText(value::ValueName).text, std::nullopt};
        const NumberReading checked = registry_.readNumberOfAnyType(value::CheckedValue);
        if (option.valueName.empty() && checked.found == Found::Absent) return;
        if (checked.present()) option.number = checked.number;
        option.text = registry_.readText(value::Text).text;
        visitor_.option(option);
    }

    clsRegistry& registry_;
    SettingsVisitor& visitor_;
    bool passedOver_ = false;
};

}  // namespace

std::string resourceText(platform::Platform& platform, const std::string& reference) {
    if (reference.empty() || reference.find('"') != std::string::npos) return {};  // no file has quotes
    clsStrings parts;
    parts.Initialise(reference.substr(1), ",");
    const std::string file = parts.ElementAsString(1);
    const std::string number = parts.ElementAsString(2);
    const auto id = number.empty() ? std::nullopt : util::wholeNumber(number.substr(1));
    const platform::Module module = id ? platform.modules.LoadLibraryExA(file) : 0;
    if (!module) return {};
    std::string text = platform.modules.LoadStringA(module, *id);
    platform.modules.FreeLibrary(module);
    return text;
}

bool readSettings(clsRegistry& registry, SettingsVisitor& visitor) {
    return Reader(registry, visitor).read();
}

}  // namespace zones
