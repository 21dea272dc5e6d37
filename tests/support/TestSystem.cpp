#include "support/TestSystem.h"

#include <cstdio>
#include <cstring>
#include <thread>

#include "support/RealSystem.h"
#include "zones/zones.h"

using namespace platform;

namespace {

constexpr const char* SettingsKey =
    "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";
constexpr const char* BrowserKey = "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Internet Explorer";
constexpr const char* Started =
    "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\IEXPLORE.EXE";

// What a test may change and the next must not find. The simulated registry starts without it anyway.
constexpr const char* OwnedKeys[] = {
    zones::ZonesKey,
    zones::DomainsKey,
    "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\ZoneMap\\Ranges",
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

Result WatchedBrowser::DllGetVersion(LibraryVersion& version) {
    version = {};
    if (const auto code = watch.before("DllGetVersion")) return *code;
    return inner_.DllGetVersion(version);
}

Result RecordingLauncher::start(const std::string& program, const std::string& arguments, Process& process) {
    started.push_back({program, arguments});
    process = 0;
    if (const auto code = watch.before("start")) return *code;
    const Result code = inner_.start(program, arguments, process);
    if (process != 0) open.insert(process);
    return code;
}

void RecordingLauncher::close(Process process) {
    open.erase(process);
    inner_.close(process);
}

// The services themselves, below those that watch them.
struct TestSystem::Below {
    std::unique_ptr<Simulation> simulation;
    std::unique_ptr<RealSystem> real;

    explicit Below(On on) {
        if (on == On::ThisSystem) real = RealSystem::make();
        if (!real) simulation = std::make_unique<Simulation>();
    }
    Platform services() { return real ? real->platform() : simulation->platform; }
};

TestSystem::TestSystem(On on)
    : below_(std::make_unique<Below>(on)),
      own_(below_->services()),
      registry(own_.registry),
      files(own_.files),
      modules(own_.modules),
      memory(own_.memory),
      system(own_.system, below_->real ? below_->real->folder() : below_->simulation->system.folder),
      browser(own_.browser),
      launcher(own_.launcher),
      desktop(own_.desktop),
      platform_{registry, files, modules, memory, system, browser, launcher, desktop} {
    for (watched::Watch* service : {&registry.watch, &files.watch, &modules.watch, &memory.watch, &system.watch,
                                    &browser.watch, &launcher.watch, &desktop.watch})
        service->above = &watch;
    reset();
}

TestSystem::~TestSystem() = default;

Simulation* TestSystem::simulation() {
    return below_->simulation.get();
}

void TestSystem::reset() {
    if (below_->real) {
        for (const char* key : OwnedKeys) deleteTree(key);
        for (const std::string& name : values(BrowserKey)) deleteValue(BrowserKey, name);
        deleteValue(SettingsKey, "MinorVersion");
    }
    if (Simulation* s = simulation()) {
        s->files.addFolder(system.folder);
        s->files.addFolder(s->system.systemFolder);
        s->files.addFile(s->system.windowsFolder + "\\regedit.exe", "");
        // The registry editor of this system: what it is given to read is in the registry when it ends.
        s->launcher.onStart = [this](const simulated::Launcher::Started& started) {
            const std::size_t begin = started.arguments.find('"') + 1;
            const std::string file = started.arguments.substr(begin, started.arguments.rfind('"') - begin);
            std::string bytes;
            if (own_.files.read(file, bytes) == Success) import(sample::readRegistryFile(bytes));
        };
    }
    setBrowserVersion("");
}

// --- the registry

HKey TestSystem::openPath(const std::string& path, AccessMask access, bool create) {
    const auto [root, subKey] = split(path);
    HKey key = 0;
    if (create)
        own_.registry.RegCreateKeyExA(root, subKey, access, key);
    else
        own_.registry.RegOpenKeyExA(root, subKey, access, key);
    return key;
}

void TestSystem::makeKey(const std::string& path) {
    own_.registry.RegCloseKey(openPath(path, KeySetValue, true));
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
    for (const sample::Entry& entry : entries) {
        const HKey key = openPath(entry.path, KeySetValue, true);
        if (entry.type != sample::Entry::NoValue)
            own_.registry.RegSetValueExA(key, entry.name, entry.type, entry.data.data(),
                                         static_cast<std::uint32_t>(entry.data.size()));
        own_.registry.RegCloseKey(key);
    }
}

void TestSystem::deleteTree(const std::string& path) {
    for (const std::string& name : keys(path)) deleteTree(path + "\\" + name);
    const HKey key = path.find('\\') == std::string::npos ? 0 : openPath(path, KeyQueryValue, false);
    if (key == 0) return;
    own_.registry.RegDeleteKeyA(key, "");
    own_.registry.RegCloseKey(key);
}

void TestSystem::deleteValue(const std::string& path, const std::string& name) {
    const HKey key = openPath(path, KeySetValue, false);
    own_.registry.RegDeleteValueA(key, name);
    own_.registry.RegCloseKey(key);
}

bool TestSystem::exists(const std::string& path) {
    const HKey key = openPath(path, KeyQueryValue, false);
    own_.registry.RegCloseKey(key);
    return key != 0;
}

std::vector<std::string> TestSystem::names(const std::string& path, bool ofKeys) {
    std::vector<std::string> names;
    const HKey key = openPath(path, KeyQueryValue | KeyEnumerateSubKeys, false);
    if (key == 0) return names;
    std::string name(16384, '\0');
    for (std::uint32_t index = 0;; ++index) {
        auto length = static_cast<std::uint32_t>(name.size());
        RegType type = 0;
        std::uint32_t size = 0;
        const Result code = ofKeys ? own_.registry.RegEnumKeyExA(key, index, name.data(), length)
                                   : own_.registry.RegEnumValueA(key, index, name.data(), length, type, nullptr, size);
        if (code != Success) break;
        names.push_back(name.substr(0, length));
    }
    own_.registry.RegCloseKey(key);
    return names;
}

std::vector<std::string> TestSystem::keys(const std::string& path) {
    return names(path, true);
}
std::vector<std::string> TestSystem::values(const std::string& path) {
    return names(path, false);
}

std::optional<sample::Entry> TestSystem::value(const std::string& path, const std::string& name) {
    sample::Entry entry{path, name, 0, {}};
    const HKey key = openPath(path, KeyQueryValue, false);
    std::uint32_t size = 0;
    Result code = own_.registry.RegQueryValueExA(key, name, entry.type, nullptr, size);
    entry.data.resize(size);
    if (code == Success) code = own_.registry.RegQueryValueExA(key, name, entry.type, entry.data.data(), size);
    own_.registry.RegCloseKey(key);
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

// --- files and program files

void TestSystem::writeFile(const std::string& name, std::string_view bytes) {
    std::uint32_t written = 0;
    own_.files.create(path(name), bytes, written);
}

std::optional<std::string> TestSystem::readFile(const std::string& name) {
    std::string bytes;
    return own_.files.read(path(name), bytes) == Success ? std::optional(bytes) : std::nullopt;
}

std::vector<std::string> TestSystem::filesIn(const std::string& folder, const std::string& wildcard) {
    std::vector<std::string> names;
    FoundFile found;
    Files::Search search = 0;
    for (Result code = own_.files.findFirst(folder + "\\" + wildcard, search, found); code == Success;
         code = own_.files.findNext(search, found))
        if (found.name != "." && found.name != "..") names.push_back(found.name);
    own_.files.findClose(search);
    return names;
}

std::string TestSystem::addProgram(const std::string& name, const simulated::ProgramFile& program) {
    if (Simulation* s = simulation())
        s->modules.add(path(name)) = program;
    else
        below_->real->addProgram(path(name), program);
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

void TestSystem::setBrowserVersion(const std::string& version) {
    if (Simulation* s = simulation()) {
        LibraryVersion& told = s->browser.version = {};
        std::sscanf(version.c_str(), "%u.%u.%u", &told.major, &told.minor, &told.build);
        s->browser.answer = version.empty() ? ModuleNotFound : Success;
    }
    if (version.empty())
        deleteValue(BrowserKey, "Version");
    else
        setText(BrowserKey, "Version", version);
}

void TestSystem::endPrograms() {
    if (Simulation* s = simulation()) s->launcher.endAll();
    // Until all have ended, or half a minute.
    for (const Launcher::Process process : launcher.open)
        for (int tries = 0; launcher.running(process) && tries < 3000; ++tries)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
}
