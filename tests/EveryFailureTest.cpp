// Every action of the user with each call of the system failing in turn, with each kind of code that it can give: the
// program lives on, loses no handle, writes nothing that it would not have written, tells the user when not all is as
// it should be, and does the same action right the next time.
#include <cstring>
#include <regex>
#include <set>

#include "app/basMain.h"
#include "backup/frmBackup.h"
#include "backup/frmRestore.h"
#include "errors/ErrorReporter.h"
#include "mail/frmOESecurity.h"
#include "support/User.h"

namespace {

using namespace platform;
using Contents = simulated::Registry::Contents;
using BackupFiles = std::map<std::string, std::string>;

// A machine with the first few zones and, of the browser's data, one setting that stands for all: each further value
// would cost a few hundred runs and take no new path.
std::vector<sample::Entry> machine(char zones) {
    static const std::regex unwanted(R"(\\TemplatePolicies\\(?!High$)|\\SO\\(?!ACTIVEX$|ACTIVEX\\DL_SIGNED)|)"
                                     R"(\\Domains\\(?!.*supplier))");
    auto entries = sample::builtInZones();
    for (auto& entry : sample::readRegistryFile(sample::browserFile())) entries.push_back(entry);
    std::erase_if(entries, [&](const sample::Entry& entry) {
        const std::size_t at = entry.path.find("\\Zones\\");
        const char zone = at == std::string::npos ? '0' : entry.path[at + 7];
        if (zone >= '0' + zones || std::regex_search(entry.path, unwanted)) return true;
        if (at != std::string::npos && zone < '5' && zones > 5)
            return entry.type != sample::Entry::NoValue && entry.name != "Flags";
        return entry.name.size() == 4 && entry.name[0] == '1' && entry.name != "1001";
    });
    const std::string map =
        "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\ZoneMap\\";
    if (zones > 5) {  // sites that move with the zone 6 when 5 goes
        entries.push_back(sample::dword(map + "Domains\\moving.com\\www", "http", 6));
        entries.push_back(sample::dword(map + "Ranges\\Range1", "*", 6));
    }
    return entries;
}

// The program on a machine as it is started, and a user who reads whatever comes up and goes on.
class World : public User {
public:
    basMain::Running running;
    std::function<void()> begin = [] {};  // called by an action where failures may begin

    World() {
        system.seedModules();
        system.setBrowserVersion("5.00.2614.3500");
        desktop.patient = true;
    }
    ~World() override { end(); }
    void TestBody() override {}
    void start() { basMain::Main(system.platform(), running); }
    void end() {
        if (running.window) running.window->unload();
        running.window.reset();
        running.application.reset();
    }
    frmMain& window() override { return *running.window; }
    // What is done with the zone then may fail: also reading what is saved.
    void select(const std::string& zone) override {
        User::select(zone);
        begin();
    }

    BackupFiles files() {
        BackupFiles files;
        for (const std::string& name : system.filesIn(system.path("Backups"))) files[name] = file(name);
        return files;
    }
    void restore(const Contents& contents, const BackupFiles& files) {
        simulated::Files& disk = system.files;
        const simulated::Watch::Pause pause(system.watch);
        system.registry.setContents(contents);
        for (const auto& [name, bytes] : this->files()) removeFile(name);
        for (const auto& [name, bytes] : files) disk.addFile(inBackups(name), bytes);
        disk.remove(system.path("Logs\\ErrorLog-3-9-2000.log"));
        basErrors::ProcStack.clear();  // trapped errors leave names
        desktop.settle();
        desktop.told.clear();
    }
    // The user sees that there is nothing to click.
    bool has(bool something) {
        if (!something) desktop.told.push_back("nothing there");
        return something;
    }
    void restoreOld(const Script<frmRestore>& script) {
        const auto choose = [&](frmRestore& form) {
            if (has(form.ListView1.count() > 0)) form.ListView1.click(1);
            script(form);
        };
        desktop.use<frmRestore>(choose, [&] { window().mnuFileRestore.click(); });
        system.endPrograms();
        window().tmrImport.tick();
    }
    void openSettingsOf1(const Script<frmSecurity>& script) {
        editPage("1", SecurityPage, [&](frmEdit& form) {
            openSettings(form, script);
            EXPECT_EQ(form.pointer(), ui::Pointer::Default);
        });
    }
    void backUp() {
        const auto fill = [](frmBackup& form) {
            form.txtDescription.type("Today");
            form.pressEnter();
        };
        desktop.use<frmBackup>(fill, [&] { window().mnuFileBackup.click(); });
    }
};

enum class Failing { WhenItSaysSo, AtOnce, FromTheStart };
struct Action {
    const char* name;
    std::function<void(World&)> run;
    Failing failing = Failing::WhenItSaysSo;
    char zones = 2;
};

const Action Actions[] = {
    {"start", [](World& world) { world.start(); }, Failing::FromTheStart},
    {"click on a zone", [](World& world) { world.User::select("0"); }, Failing::AtOnce},
    {"every page",
     [](World& world) {
         world.edit("1", [](frmEdit& form) {
             User::typeOver(form.general.details.txtZoneName, "Another");
             User::typeOver(form.general.details.txtZoneDescription, "New");
             form.general.cmdGeneral(1).click();
             form.TabStrip1.choose(User::FlagsPage);
             form.flags.chkProperties(7).click();
             form.flags.cmdFlags(1).click();
             form.TabStrip1.choose(User::SecurityPage);
             form.levels.cboSetting(MinimumLevel).choose(0);
             form.levels.cmdApply(MinimumLevel).click();
         });
     }},
    {"icon",
     [](World& world) {
         const std::string file = world.system.path("shell32.dll");
         world.edit("1", [&](frmEdit& form) {
             world.chooseIcon(form, file, 2);
             if (world.has(form.general.details.icon().file == file)) form.general.cmdGeneral(1).click();
         });
     }},
    {"levels",
     [](World& world) {
         world.editPage("1", User::SecurityPage, [](frmEdit& form) {
             for (const int index : {RecommendedLevel, CurrentLevel}) {
                 form.levels.cboSetting(index).choose(0);
                 form.levels.cmdApply(index).click();
             }
         });
     }},
    {"setting",
     [](World& world) {
         world.openSettingsOf1([&](frmSecurity& form) {
             if (world.has(form.TVMRTreeView1.count() >= 4)) form.TVMRTreeView1.click(4);
         });
     }},
    {"add a zone",
     [](World& world) {
         world.add([](frmAdd& form) {
             User::typeOver(form.details.txtZoneName, "New");
             User::typeOver(form.details.txtZoneDescription, "A new zone");
             form.pressEnter();
         });
     },
     Failing::AtOnce},
    {"delete a zone",
     [](World& world) {
         world.select("5");
         world.desktop.expectMessage("sites|Suppliers", ui::Answer::Yes);
         world.window().cmdZoneOption(2).click();
     },
     Failing::WhenItSaysSo, 7},
    {"back up", [](World& world) { world.backUp(); }, Failing::AtOnce},
    {"restore", [](World& world) { world.restoreOld([](frmRestore& form) { form.cmdRestore.click(); }); },
     Failing::AtOnce},
    {"restore without an export",
     [](World& world) {
         world.restoreOld([&](frmRestore& form) {
             world.removeFile("old.reg");
             world.begin();
             world.desktop.expectMessage("restored in part|0|2", ui::Answer::No);
             form.cmdRestore.click();
         });
     }},
    {"delete a backup",
     [](World& world) {
         world.restoreOld([&](frmRestore& form) {
             world.begin();
             form.cmdDelete.click();
         });
     }},
    {"mail zone",
     [](World& world) {
         const auto choose = [&](frmOESecurity& form) {
             if (world.has(form.lsvOEZones.count() == 2)) form.lsvOEZones.click(2);
         };
         world.desktop.use<frmOESecurity>(choose, [&] { world.window().mnuEditOESecurity.items()[0].click(); });
     },
     Failing::AtOnce},
};

// One code for each way that a function's callers can take: the system has more, which nobody tells apart. None for
// what cannot fail.
std::vector<Result> codesOf(const std::string& function) {
    static const std::pair<const char*, std::vector<Result>> codes[] = {
        {" RegOpenKeyExA RegOpenKeyA findFirst attributes read ", {FileNotFound, AccessDenied}},
        {" RegEnumKeyExA RegEnumValueA ", {OutOfMemory, MoreData}},
        {" RegQueryValueExA ", {FileNotFound, OutOfMemory, MoreData}},
        {" RegQueryInfoKeyA ", {KeyDeleted}},
        {" RegSetValueExA ", {AccessDenied, KeyDeleted}},
        {" append ", {PathNotFound, DiskFull}},
        {" createFolder ", {AlreadyExists, DiskFull}},
        {" LoadLibraryExA ", {ModuleNotFound, BadExeFormat}},
        {" EnumResourceNamesA ", {NoSuchResource, OutOfMemory}},
        // Without the system's folder a file is looked for by its name alone, which leads to the same file.
        {" FreeLibrary DestroyIcon findClose GetSystemDirectoryA ", {}},
    };
    for (const auto& [functions, given] : codes)
        if (std::strstr(functions, (" " + function + " ").c_str())) return given;
    return {AccessDenied};
}

// Whether the answer means that there is nothing, or leaves no way to tell the user.
bool mayBeSilent(const std::string& function, Result code) {
    return (function.starts_with("Reg") && code == FileNotFound) || function == "attributes" ||
           function == "messageBox" || function == "openFile";
}

// What the action does when nothing fails.
struct Course {
    std::vector<std::string> calls;
    std::map<std::string, std::set<std::string>> held;  // what each value held between two calls; "-": it was not there
    Contents after;
    BackupFiles files;

    void note(const Contents& contents) {
        const bool first = held.empty();
        for (const auto& [name, data] : contents) {
            const auto [value, isNew] = held.try_emplace(name);
            if (isNew && !first) value->second.insert("-");
            value->second.insert(data);
        }
        for (auto& [name, data] : held)
            if (!contents.contains(name)) data.insert("-");
    }
};

// What is not the same, by name.
std::string difference(const std::map<std::string, std::string>& is, const std::map<std::string, std::string>& other) {
    std::string text;
    for (const auto& [name, data] : is)
        if (!other.contains(name) || other.at(name) != data) text += name + "\n";
    for (const auto& [name, data] : other)
        if (!is.contains(name)) text += name + "\n";
    return text;
}

// One action with all of its failures.
class Trial {
public:
    explicit Trial(const Action& action) : action_(action) {
        world_.system.import(machine(action.zones));
        world_.start();
        world_.backUp();
        before_ = world_.system.registry.contents();
        for (const auto& [name, bytes] : world_.files()) files_["old" + name.substr(name.size() - 4)] = bytes;

        world_.begin = [&] {
            world_.system.watch.onCall = [&](const char* function) {
                course_.calls.push_back(function);
                course_.note(world_.system.registry.contents());
            };
        };
        run();
        world_.system.watch.onCall = nullptr;
        course_.after = world_.system.registry.contents();
        course_.note(course_.after);
        course_.files = world_.files();
    }

    int tryAll() {
        int tried = 0;
        for (std::size_t n = 1; n <= course_.calls.size(); ++n)
            for (const Result code : codesOf(course_.calls[n - 1])) {
                fail(n, code);
                ++tried;
            }
        world_.end();
        expectReleased(0);
        return tried;
    }

private:
    // From the same state each time, as the program finds it when the user comes back.
    void run() {
        if (action_.failing == Failing::FromTheStart) world_.end();
        world_.restore(before_, files_);
        if (world_.running.window) world_.window().RebuildList();
        EXPECT_EQ(world_.desktop.told, World::Texts());
        if (action_.failing != Failing::WhenItSaysSo) world_.begin();
        action_.run(world_);
    }

    void fail(std::size_t n, Result code) {
        const std::string function = course_.calls[n - 1];
        SCOPED_TRACE(function + ", call " + std::to_string(n) + " of " + std::to_string(course_.calls.size()) +
                     ", fails with " + std::to_string(code));
        world_.begin = [&] { world_.system.watch.failOn(static_cast<int>(n), code); };
        run();
        EXPECT_TRUE(world_.system.watch.failed());
        world_.system.watch.reset();
        world_.begin = [] {};
        // A value that the system says is not there is saved as a missing one.
        check(mayBeSilent(function, code), function == "RegQueryValueExA" && code == FileNotFound);
        if (code != codesOf(function).back()) return;  // the next failure is the next action
        run();
        EXPECT_EQ(difference(world_.system.registry.contents(), course_.after), "") << "the next time";
        EXPECT_EQ(difference(world_.files(), course_.files), "") << "the next time";
        EXPECT_EQ(world_.desktop.told, World::Texts()) << "the next time";
    }

    void check(bool silent, bool misled) {
        expectReleased(1);  // the session's current key
        EXPECT_FALSE(errors::errorPending());
        EXPECT_LE(world_.desktop.forms().size(), 1u);
        EXPECT_LE(world_.desktop.told.size(), 3u);
        if (world_.running.window) {
            EXPECT_EQ(world_.window().pointer(), ui::Pointer::Default);
        }

        const Contents now = world_.system.registry.contents();
        if (!misled) {
            for (const auto& [name, data] : now)
                EXPECT_TRUE(course_.held.contains(name) && course_.held.at(name).contains(data))
                    << name << " is " << data;
        }
        for (const auto& [name, held] : course_.held)
            if (!held.contains("-")) {
                EXPECT_TRUE(now.contains(name)) << name;
            }
        if (silent || !world_.desktop.told.empty()) return;
        EXPECT_EQ(difference(now, course_.after), "") << "nobody was told";
        EXPECT_EQ(difference(world_.files(), course_.files), "") << "nobody was told";
    }

    void expectReleased(std::size_t registryHandles) {
        EXPECT_LE(world_.system.registry.openHandles(), registryHandles);
        EXPECT_EQ(world_.system.files.openSearches(), 0);
        EXPECT_EQ(world_.system.modules.loaded(), 0);
        EXPECT_EQ(world_.system.modules.icons(), 0);
        EXPECT_EQ(world_.system.memory.blocks(), 0);
        EXPECT_TRUE(world_.system.launcher.open.empty());
    }

    const Action& action_;
    World world_;
    Contents before_;
    BackupFiles files_;
    Course course_;
};

}  // namespace

TEST(EveryFailure, LeavesTheProgramWorkingAndTheZonesAsTheActionLeftThem) {
    for (const Action& action : Actions) {
        SCOPED_TRACE(action.name);
        EXPECT_GT(Trial(action).tryAll(), 3);
    }
}
