#include "support/TestSystem.h"

#include <cstring>
#include <thread>

#include "zones/zones.h"

using namespace platform;

namespace {

constexpr const char* SettingsKey =
    "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";
constexpr const char* BrowserKey = "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Internet Explorer";
constexpr const char* Started =
    "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\IEXPLORE.EXE";

// What a test may change, or a new Wine prefix holds, and the next test must not find. The simulated registry starts
// without it anyway.
constexpr const char* OwnedKeys[] = {
    zones::ZonesKey,
    "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\ZoneMap",
    "HKEY_CURRENT_USER\\Identities",
    "HKEY_CURRENT_USER\\Software\\Pellweather Inc.",
    "HKEY_CURRENT_USER\\Software\\Tavimor Tests",
    "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\TemplatePolicies",
    "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\SO",
    Started,
};

std::optional<std::uint32_t> numberIn(const sample::Entry& entry) {
    std::uint32_t number = 0;
    if (entry.type != RegDword || entry.data.size() != sizeof number) return {};
    std::memcpy(&number, entry.data.data(), sizeof number);
    return number;
}

}  // namespace

TestSystem::TestSystem() : real_(RealSystem::make(system, launcher)), bare_(real_ ? real_->platform() : services) {
    for (simulated::Watch* service : {&registry.watch, &files.watch, &modules.watch, &memory.watch, &system.watch,
                                      &browser.watch, &launcher.watch, &desktop.watch})
        service->above = &watch;
    reset();
}

TestSystem::~TestSystem() = default;

void TestSystem::reset() {
    if (real_) {
        for (const char* key : OwnedKeys) deleteTree(key);
        for (const std::string& name : values(BrowserKey)) deleteValue(BrowserKey, name);
        deleteValue(SettingsKey, "MinorVersion");
    }
    if (inMemory()) {
        files.addFolder(system.folder);
        files.addFolder(system.systemFolder);
        files.addFile(system.windowsFolder + "\\regedit.exe", "");
        // The registry editor of this system: what it is given to read is in the registry when it ends.
        launcher.onStart = [this](const simulated::Launcher::Started& started) {
            const std::size_t begin = started.arguments.find('"') + 1;
            const std::string file = started.arguments.substr(begin, started.arguments.rfind('"') - begin);
            std::string bytes;
            const simulated::Watch::Pause pause(watch);
            if (bare_.files.read(file, bytes) == Success) import(sample::readRegistryFile(bytes));
        };
    }
    setBrowserVersion("");
}

// --- the registry

// One that is open. Where it is, nothing is watched.
class TestSystem::Key {
public:
    Key(TestSystem& system, const std::string& path, AccessMask access)
        : pause_(system.watch), registry_(system.bare_.registry) {
        const HKey root = path.starts_with("HKEY_LOCAL_MACHINE") ? HKeyLocalMachine : HKeyCurrentUser;
        const std::string subKey = path.substr(path.find('\\') + 1);
        if (access == KeySetValue)
            registry_.RegCreateKeyExA(root, subKey, access, key_);
        else
            registry_.RegOpenKeyExA(root, subKey, access, key_);
    }
    ~Key() { registry_.RegCloseKey(key_); }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    operator HKey() const { return key_; }

private:
    const simulated::Watch::Pause pause_;
    Registry& registry_;
    HKey key_ = 0;
};

void TestSystem::makeKey(const std::string& path) {
    const Key made(*this, path, KeySetValue);
}

void TestSystem::import(const std::vector<sample::Entry>& entries) {
    for (const sample::Entry& entry : entries) {
        const Key key(*this, entry.path, KeySetValue);
        if (entry.type != sample::Entry::NoValue)
            bare_.registry.RegSetValueExA(key, entry.name, entry.type, entry.data.data(),
                                          static_cast<std::uint32_t>(entry.data.size()));
    }
}

void TestSystem::deleteTree(const std::string& path) {
    for (const std::string& name : keys(path)) deleteTree(path + "\\" + name);
    if (const Key key(*this, path, KeyQueryValue); key) bare_.registry.RegDeleteKeyA(key, "");
}

void TestSystem::deleteValue(const std::string& path, const std::string& name) {
    bare_.registry.RegDeleteValueA(Key(*this, path, KeyQueryValue | KeySetValue), name);
}

bool TestSystem::exists(const std::string& path) {
    return Key(*this, path, KeyQueryValue);
}

std::vector<std::string> TestSystem::names(const std::string& path, bool ofKeys) {
    std::vector<std::string> names;
    const Key key(*this, path, KeyQueryValue | KeyEnumerateSubKeys);
    std::string name(16384, '\0');
    for (std::uint32_t index = 0; key; ++index) {
        auto length = static_cast<std::uint32_t>(name.size());
        RegType type = 0;
        std::uint32_t size = 0;
        const Result code = ofKeys ? bare_.registry.RegEnumKeyExA(key, index, name.data(), length)
                                   : bare_.registry.RegEnumValueA(key, index, name.data(), length, type, nullptr, size);
        if (code != Success) break;
        names.push_back(name.substr(0, length));
    }
    return names;
}

std::optional<sample::Entry> TestSystem::value(const std::string& path, const std::string& name) {
    sample::Entry entry{path, name, 0, {}};
    const Key key(*this, path, KeyQueryValue);
    std::uint32_t size = 0;
    if (bare_.registry.RegQueryValueExA(key, name, entry.type, nullptr, size) != Success) return {};
    entry.data.resize(size);
    bare_.registry.RegQueryValueExA(key, name, entry.type, entry.data.data(), size);
    return entry;
}

std::optional<std::string> TestSystem::text(const std::string& path, const std::string& name) {
    const auto found = value(path, name);
    return found && found->type != RegDword && found->type != RegBinary ? std::optional(shown(*found)) : std::nullopt;
}

std::optional<std::uint32_t> TestSystem::dword(const std::string& path, const std::string& name) {
    const auto found = value(path, name);
    return found ? numberIn(*found) : std::nullopt;
}

std::string TestSystem::shown(const sample::Entry& entry) {
    std::string text(entry.data.begin(), entry.data.end());
    if (const auto number = numberIn(entry)) return "#" + std::to_string(*number);
    if (entry.type != RegBinary) return text.ends_with('\0') ? text.substr(0, text.size() - 1) : text;
    text = "hex";
    for (const std::uint8_t byte : entry.data) text += " " + std::to_string(byte);
    return text;
}

std::optional<std::string> TestSystem::shown(const std::string& path, const std::string& name) {
    const auto found = value(path, name);
    return found ? std::optional(shown(*found)) : std::nullopt;
}

TestSystem::Tree TestSystem::tree(const std::string& path) {
    Tree all;
    if (exists(path)) all[""];
    for (const std::string& name : values(path)) all["|" + name] = *shown(path, name);
    for (const std::string& key : keys(path))
        for (const auto& [name, held] : tree(path + "\\" + key))
            all[key + (name.empty() || name[0] == '|' ? "" : "\\") + name] = held;
    return all;
}

// --- files and program files

void TestSystem::writeFile(const std::string& name, std::string_view bytes) {
    const simulated::Watch::Pause pause(watch);
    std::uint32_t written = 0;
    bare_.files.create(path(name), bytes, written);
}

std::optional<std::string> TestSystem::readFile(const std::string& name) {
    const simulated::Watch::Pause pause(watch);
    std::string bytes;
    return bare_.files.read(path(name), bytes) == Success ? std::optional(bytes) : std::nullopt;
}

std::vector<std::string> TestSystem::filesIn(const std::string& folder, const std::string& wildcard) {
    const simulated::Watch::Pause pause(watch);
    std::vector<std::string> names;
    FoundFile found;
    Files::Search search = 0;
    for (Result code = bare_.files.findFirst(folder + "\\" + wildcard, search, found); code == Success;
         code = bare_.files.findNext(search, found))
        if (found.name != "." && found.name != "..") names.push_back(found.name);
    bare_.files.findClose(search);
    return names;
}

std::string TestSystem::addProgram(const std::string& name, const simulated::ProgramFile& program) {
    if (inMemory())
        modules.add(path(name)) = program;
    else
        real_->addProgram(path(name), program);
    return path(name);
}

// --- what a machine has

void TestSystem::seedBrowser() {
    static const std::vector<sample::Entry> entries = sample::readRegistryFile(sample::browserFile());
    import(entries);
    setBrowserVersion(text(BrowserKey, "Version").value_or(""));
}

void TestSystem::seedModules() {
    const std::pair<const char*, std::vector<std::uint16_t>> seeds[] = {
        {"explorer.exe", {100}}, {"shell32.dll", {1, 18}}, {"inetcpl.cpl", {1313, 4480, 4481}}, {"Tavimor.exe", {1}}};
    for (const auto& [file, groups] : seeds) {
        simulated::ProgramFile program;
        std::uint16_t firstImage = 1;
        for (const std::uint16_t group : groups) {
            const auto images = icons::usualImages(static_cast<std::uint8_t>(group));
            icons::addTo(program, group, images, firstImage);
            firstImage = static_cast<std::uint16_t>(firstImage + images.size());
        }
        addProgram(file, program);
    }
}

void TestSystem::seedAll() {
    seedZones();
    seedBrowser();
    seedModules();
}

void TestSystem::setBrowserVersion(const std::string& version) {
    if (inMemory()) {
        LibraryVersion& told = browser.version = {};
        std::sscanf(version.c_str(), "%u.%u.%u", &told.major, &told.minor, &told.build);
        browser.answer = version.empty() ? ModuleNotFound : Success;
    }
    if (version.empty())
        deleteValue(BrowserKey, "Version");
    else
        setText(BrowserKey, "Version", version);
}

void TestSystem::endPrograms() {
    if (inMemory()) launcher.endAll();
    // Until all have ended, or half a minute.
    for (const Launcher::Process process : launcher.open)
        for (int tries = 0; bare_.launcher.running(process) && tries < 3000; ++tries)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
}
