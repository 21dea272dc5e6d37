#include "support/TestSystem.h"

#include <cstdio>
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

std::pair<HKey, std::string> split(const std::string& path) {
    return {path.starts_with("HKEY_LOCAL_MACHINE") ? HKeyLocalMachine : HKeyCurrentUser,
            path.substr(path.find('\\') + 1)};
}

}  // namespace

TestSystem::TestSystem()
    : real_(RealSystem::make(system, launcher)),
      services_(real_ ? real_->platform()
                      : Platform{registry, files, modules, memory, system, browser, launcher, screen}) {
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
            if (services_.files.read(file, bytes) == Success) import(sample::readRegistryFile(bytes));
        };
    }
    setBrowserVersion("");
}

// --- the registry

HKey TestSystem::openPath(const std::string& path, AccessMask access, bool create) {
    const auto [root, subKey] = split(path);
    HKey key = 0;
    if (create)
        services_.registry.RegCreateKeyExA(root, subKey, access, key);
    else
        services_.registry.RegOpenKeyExA(root, subKey, access, key);
    return key;
}

void TestSystem::makeKey(const std::string& path) {
    const simulated::Watch::Pause pause(watch);
    services_.registry.RegCloseKey(openPath(path, KeySetValue, true));
}

void TestSystem::set(const sample::Entry& entry) {
    import({entry});
}

void TestSystem::setText(const std::string& path, const std::string& name, std::string_view text) {
    set(sample::text(path, name, text));
}

void TestSystem::setDword(const std::string& path, const std::string& name, std::uint32_t number) {
    set(sample::dword(path, name, number));
}

void TestSystem::setBinary(const std::string& path, const std::string& name, const Bytes& data) {
    set({path, name, RegBinary, data});
}

void TestSystem::import(const std::vector<sample::Entry>& entries) {
    const simulated::Watch::Pause pause(watch);
    for (const sample::Entry& entry : entries) {
        const HKey key = openPath(entry.path, KeySetValue, true);
        if (entry.type != sample::Entry::NoValue)
            services_.registry.RegSetValueExA(key, entry.name, entry.type, entry.data.data(),
                                              static_cast<std::uint32_t>(entry.data.size()));
        services_.registry.RegCloseKey(key);
    }
}

void TestSystem::deleteTree(const std::string& path) {
    const simulated::Watch::Pause pause(watch);
    for (const std::string& name : keys(path)) deleteTree(path + "\\" + name);
    const HKey key = path.find('\\') == std::string::npos ? 0 : openPath(path, KeyQueryValue, false);
    if (key == 0) return;
    services_.registry.RegDeleteKeyA(key, "");
    services_.registry.RegCloseKey(key);
}

void TestSystem::deleteValue(const std::string& path, const std::string& name) {
    const simulated::Watch::Pause pause(watch);
    const HKey key = openPath(path, KeySetValue, false);
    services_.registry.RegDeleteValueA(key, name);
    services_.registry.RegCloseKey(key);
}

bool TestSystem::exists(const std::string& path) {
    const simulated::Watch::Pause pause(watch);
    const HKey key = openPath(path, KeyQueryValue, false);
    services_.registry.RegCloseKey(key);
    return key != 0;
}

std::vector<std::string> TestSystem::names(const std::string& path, bool ofKeys) {
    const simulated::Watch::Pause pause(watch);
    std::vector<std::string> names;
    const HKey key = openPath(path, KeyQueryValue | KeyEnumerateSubKeys, false);
    if (key == 0) return names;
    std::string name(16384, '\0');
    for (std::uint32_t index = 0;; ++index) {
        auto length = static_cast<std::uint32_t>(name.size());
        RegType type = 0;
        std::uint32_t size = 0;
        const Result code =
            ofKeys ? services_.registry.RegEnumKeyExA(key, index, name.data(), length)
                   : services_.registry.RegEnumValueA(key, index, name.data(), length, type, nullptr, size);
        if (code != Success) break;
        names.push_back(name.substr(0, length));
    }
    services_.registry.RegCloseKey(key);
    return names;
}

std::vector<std::string> TestSystem::keys(const std::string& path) {
    return names(path, true);
}
std::vector<std::string> TestSystem::values(const std::string& path) {
    return names(path, false);
}

std::optional<sample::Entry> TestSystem::value(const std::string& path, const std::string& name) {
    const simulated::Watch::Pause pause(watch);
    sample::Entry entry{path, name, 0, {}};
    const HKey key = openPath(path, KeyQueryValue, false);
    std::uint32_t size = 0;
    Result code = services_.registry.RegQueryValueExA(key, name, entry.type, nullptr, size);
    entry.data.resize(size);
    if (code == Success) code = services_.registry.RegQueryValueExA(key, name, entry.type, entry.data.data(), size);
    services_.registry.RegCloseKey(key);
    return code == Success ? std::optional(entry) : std::nullopt;
}

std::optional<std::string> TestSystem::text(const std::string& path, const std::string& name) {
    const auto found = value(path, name);
    if (!found || found->type == RegDword || found->type == RegBinary) return {};
    std::string text(found->data.begin(), found->data.end());
    if (text.ends_with('\0')) text.pop_back();
    return text;
}

std::optional<std::uint32_t> TestSystem::dword(const std::string& path, const std::string& name) {
    const auto found = value(path, name);
    if (!found || found->type != RegDword || found->data.size() != 4) return {};
    std::uint32_t number = 0;
    std::memcpy(&number, found->data.data(), sizeof number);
    return number;
}

std::string TestSystem::shown(const sample::Entry& entry) {
    std::string bytes(entry.data.begin(), entry.data.end());
    if (entry.type == RegSz && bytes.ends_with('\0')) return bytes.substr(0, bytes.size() - 1);
    if (entry.type == RegSz) return bytes;
    std::uint32_t number = 0;
    if (entry.type == RegDword && bytes.size() == 4) {
        std::memcpy(&number, bytes.data(), sizeof number);
        return "#" + std::to_string(number);
    }
    bytes = "hex";
    for (const std::uint8_t byte : entry.data) bytes += " " + std::to_string(byte);
    return bytes;
}

std::optional<std::string> TestSystem::shown(const std::string& path, const std::string& name) {
    const auto found = value(path, name);
    return found ? std::optional(shown(*found)) : std::nullopt;
}

TestSystem::Tree TestSystem::tree(const std::string& path) {
    Tree all;
    if (!exists(path)) return all;
    all[""];
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
    services_.files.create(path(name), bytes, written);
}

std::optional<std::string> TestSystem::readFile(const std::string& name) {
    const simulated::Watch::Pause pause(watch);
    std::string bytes;
    return services_.files.read(path(name), bytes) == Success ? std::optional(bytes) : std::nullopt;
}

std::vector<std::string> TestSystem::filesIn(const std::string& folder, const std::string& wildcard) {
    const simulated::Watch::Pause pause(watch);
    std::vector<std::string> names;
    FoundFile found;
    Files::Search search = 0;
    for (Result code = services_.files.findFirst(folder + "\\" + wildcard, search, found); code == Success;
         code = services_.files.findNext(search, found))
        if (found.name != "." && found.name != "..") names.push_back(found.name);
    services_.files.findClose(search);
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

void TestSystem::seedZones() {
    import(sample::builtInZones());
}

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
        for (int tries = 0; services_.launcher.running(process) && tries < 3000; ++tries)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
}
