#include "support/TestSystem.h"

#include <charconv>
#include <cstring>

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

struct Root {
    const char* name;
    HKey handle;
};
constexpr Root Roots[] = {
    {"HKEY_CLASSES_ROOT", HKeyClassesRoot},     {"HKEY_CURRENT_USER", HKeyCurrentUser},
    {"HKEY_LOCAL_MACHINE", HKeyLocalMachine},   {"HKEY_USERS", HKeyUsers},
    {"HKEY_CURRENT_CONFIG", HKeyCurrentConfig}, {"HKEY_DYN_DATA", HKeyDynData},
};

std::pair<HKey, std::string> split(const std::string& path) {
    const std::size_t end = std::min(path.find('\\'), path.size());
    for (const Root& root : Roots)
        if (simulated::same(path.substr(0, end), root.name))
            return {root.handle, path.substr(std::min(end + 1, path.size()))};
    return {0, ""};
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
    if (code == Success) ++open;
    return code;
}

void RecordingLauncher::close(Process process) {
    if (process != 0) --open;
    inner_.close(process);
}

// The services themselves, behind what watches them.
struct TestSystem::Below {
    std::unique_ptr<Simulation> simulation;
    std::unique_ptr<RealSystem> real;

    explicit Below(On on) {
        if (on == On::ThisSystem) real = RealSystem::make();
        if (!real) simulation = std::make_unique<Simulation>();
    }
    Registry& registry() { return real ? real->registry() : simulation->registry; }
    Files& files() { return real ? real->files() : simulation->files; }
    Modules& modules() { return real ? real->modules() : simulation->modules; }
    Memory& memory() { return real ? real->memory() : simulation->memory; }
    System& system() { return real ? real->system() : simulation->system; }
    Browser& browser() { return real ? real->browser() : simulation->browser; }
    Launcher& launcher() { return real ? real->launcher() : simulation->launcher; }
    ui::Desktop& desktop() { return real ? real->desktop() : simulation->desktop; }
    std::string folder() { return real ? real->folder() : simulation->system.folder; }
};

TestSystem::TestSystem(On on)
    : below_(std::make_unique<Below>(on)),
      registry(below_->registry()),
      files(below_->files()),
      modules(below_->modules()),
      memory(below_->memory()),
      system(below_->system(), below_->folder()),
      browser(below_->browser()),
      launcher(below_->launcher()),
      desktop(below_->desktop()),
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
        // The registry editor of this system: what it is given to read is in the registry when it ends.
        s->launcher.onStart = [this](const simulated::Launcher::Started& started) {
            const std::size_t begin = started.arguments.find('"');
            std::string file = begin == std::string::npos ? started.arguments.substr(started.arguments.find(' ') + 1)
                                                          : started.arguments.substr(begin + 1);
            if (file.ends_with('"')) file.pop_back();
            std::string bytes;
            if (below_->files().read(file, bytes) == Success) import(sample::readRegistryFile(bytes));
        };
    }
    setBrowserVersion("");
}

// --- the registry

HKey TestSystem::openPath(const std::string& path, AccessMask access, bool create) {
    // No path may be longer for the system; a longer one is opened in steps.
    constexpr std::size_t longest = 260;
    auto [root, subKey] = split(path);
    HKey above = root;
    for (;;) {
        const std::size_t step = subKey.size() > longest ? subKey.rfind('\\', longest) : std::string::npos;
        const std::string part = subKey.substr(0, step);
        HKey key = 0;
        const Result code = create ? below_->registry().RegCreateKeyExA(above, part, access, key)
                                   : below_->registry().RegOpenKeyExA(above, part, access, key);
        if (above != root) below_->registry().RegCloseKey(above);
        if (code != Success || step == std::string::npos) return code == Success ? key : 0;
        above = key;
        subKey.erase(0, step + 1);
    }
}

void TestSystem::makeKey(const std::string& path) {
    below_->registry().RegCloseKey(openPath(path, KeySetValue, true));
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

// Opens each key once: a registry file lists a key's values one after another.
void TestSystem::import(const std::vector<sample::Entry>& entries) {
    const std::string* open = nullptr;
    HKey key = 0;
    for (const sample::Entry& entry : entries) {
        if (!open || *open != entry.path) {
            if (open) below_->registry().RegCloseKey(key);
            key = openPath(entry.path, KeySetValue, true);
            open = &entry.path;
        }
        if (entry.type == sample::Entry::NoValue) continue;
        below_->registry().RegSetValueExA(key, entry.name, entry.type, entry.data.data(),
                                          static_cast<std::uint32_t>(entry.data.size()));
    }
    if (open) below_->registry().RegCloseKey(key);
}

void TestSystem::deleteTree(const std::string& path) {
    for (const std::string& name : keys(path)) deleteTree(path + "\\" + name);
    const HKey key = path.find('\\') == std::string::npos ? 0 : openPath(path, KeyQueryValue, false);
    if (key == 0) return;
    below_->registry().RegDeleteKeyA(key, "");
    below_->registry().RegCloseKey(key);
}

void TestSystem::deleteValue(const std::string& path, const std::string& name) {
    const HKey key = openPath(path, KeySetValue, false);
    below_->registry().RegDeleteValueA(key, name);
    below_->registry().RegCloseKey(key);
}

bool TestSystem::exists(const std::string& path) {
    const HKey key = openPath(path, KeyQueryValue, false);
    below_->registry().RegCloseKey(key);
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
        const Result code =
            ofKeys ? below_->registry().RegEnumKeyExA(key, index, name.data(), length)
                   : below_->registry().RegEnumValueA(key, index, name.data(), length, type, nullptr, size);
        if (code != Success) break;
        names.push_back(name.substr(0, length));
    }
    below_->registry().RegCloseKey(key);
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
    Result code = below_->registry().RegQueryValueExA(key, name, entry.type, nullptr, size);
    entry.data.resize(size);
    if (code == Success) code = below_->registry().RegQueryValueExA(key, name, entry.type, entry.data.data(), size);
    below_->registry().RegCloseKey(key);
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
    for (int byte = 3; byte >= 0; --byte) number = number << 8 | found->data[static_cast<std::size_t>(byte)];
    return number;
}

// --- files and program files

void TestSystem::writeFile(const std::string& name, std::string_view bytes) {
    std::uint32_t written = 0;
    below_->files().create(path(name), bytes, written);
}

std::optional<std::string> TestSystem::readFile(const std::string& name) {
    std::string bytes;
    return below_->files().read(path(name), bytes) == Success ? std::optional(bytes) : std::nullopt;
}

std::vector<std::string> TestSystem::filesIn(const std::string& folder, const std::string& wildcard) {
    std::vector<std::string> names;
    FoundFile found;
    Files::Search search = 0;
    for (Result code = below_->files().findFirst(folder + "\\" + wildcard, search, found); code == Success;
         code = below_->files().findNext(search, found))
        if (found.name != "." && found.name != "..") names.push_back(found.name);
    below_->files().findClose(search);
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
    struct Seed {
        const char* file;
        std::vector<std::uint16_t> groups;
    };
    const Seed seeds[] = {
        {"explorer.exe", {100}}, {"shell32.dll", {1, 18}}, {"inetcpl.cpl", {1313, 4480, 4481}}, {"Tavimor.exe", {1}}};
    for (const Seed& seed : seeds) {
        simulated::ProgramFile program;
        std::uint16_t firstImage = 1;
        for (const std::uint16_t group : seed.groups) {
            const auto images = icons::usualImages(static_cast<std::uint8_t>(group));
            icons::addTo(program, group, images, firstImage);
            firstImage = static_cast<std::uint16_t>(firstImage + images.size());
        }
        addProgram(seed.file, program);
    }
}

void TestSystem::setBrowserVersion(const std::string& version) {
    if (Simulation* s = simulation()) {
        std::uint32_t* const numbers[] = {&s->browser.version.major, &s->browser.version.minor,
                                          &s->browser.version.build};
        const char* at = version.data();
        const char* const end = at + version.size();
        for (std::uint32_t* number : numbers) {
            *number = 0;
            at = std::min(std::from_chars(at, end, *number).ptr + 1, end);
        }
        s->browser.answer = version.empty() ? ModuleNotFound : Success;
    }
    if (version.empty())
        deleteValue(BrowserKey, "Version");
    else
        setText(BrowserKey, "Version", version);
}

void TestSystem::endPrograms() {
    if (Simulation* s = simulation())
        s->launcher.endAll();
    else
        below_->real->waitForPrograms();
}
