// The system that a test runs on: in memory natively, the real one as a Windows program, with the same interface.
//
// Each begins clean: no zones, sites, identities, templates, settings tree, browser or settings of the program, and an
// empty program folder. What a test needs it seeds or sets. The conveniences go past the watched services: they are
// neither counted nor made to fail.
#pragma once

#include <memory>
#include <optional>
#include <set>

#include "platform/Platform.h"
#include "simulated/Desktop.h"
#include "simulated/Files.h"
#include "simulated/Memory.h"
#include "simulated/Modules.h"
#include "simulated/Registry.h"
#include "simulated/System.h"
#include "support/IconBytes.h"
#include "support/SampleData.h"
#include "support/ScriptedDesktop.h"
#include "support/Watched.h"

// Everything in memory, with the switches that a real system does not have.
struct Simulation {
    simulated::Registry registry;
    simulated::Files files;
    simulated::Modules modules{files};
    simulated::Memory memory;
    simulated::System system;
    simulated::Browser browser;
    simulated::Launcher launcher;
    simulated::Desktop desktop;
    platform::Platform platform{registry, files, modules, memory, system, browser, launcher, desktop};
};

// The system with the clock and the program's place set by the test.
class PlacedSystem : public platform::System {
public:
    PlacedSystem(platform::System& inner, std::string place) : folder(std::move(place)), inner_(inner) {}
    watched::Watch watch;
    std::string folder;
    std::string name = "Tavimor";
    platform::LocalTime now{2000, 3, 9, 14, 5, 7};
    std::uint32_t ticks = 0, ticksALook = 10;  // milliseconds, and how many pass from one look at them to the next

    std::string GetWindowsDirectoryA() override {
        return watch.before("GetWindowsDirectoryA") ? "" : inner_.GetWindowsDirectoryA();
    }
    std::string GetSystemDirectoryA() override {
        return watch.before("GetSystemDirectoryA") ? "" : inner_.GetSystemDirectoryA();
    }
    std::string programFolder() override { return folder; }
    std::string programName() override { return name; }
    std::string ExpandEnvironmentStringsA(const std::string& text) override {
        return watch.before("ExpandEnvironmentStringsA") ? text : inner_.ExpandEnvironmentStringsA(text);
    }
    platform::LocalTime GetLocalTime() override { return now; }
    std::uint32_t GetTickCount() override { return ticks += ticksALook; }
    bool GetVersionExA(platform::SystemVersion& version) override { return inner_.GetVersionExA(version); }

private:
    platform::System& inner_;
};

class WatchedBrowser : public platform::Browser {
public:
    explicit WatchedBrowser(platform::Browser& inner) : inner_(inner) {}
    watched::Watch watch;

    platform::Result DllGetVersion(platform::LibraryVersion& version) override;

private:
    platform::Browser& inner_;
};

// Remembers what was started.
class RecordingLauncher : public platform::Launcher {
public:
    struct Started {
        std::string program, arguments;
    };
    explicit RecordingLauncher(platform::Launcher& inner) : inner_(inner) {}
    std::vector<Started> started;
    std::set<Process> open;  // not closed
    watched::Watch watch;

    platform::Result start(const std::string& program, const std::string& arguments, Process& process) override;
    bool running(Process process) override { return inner_.running(process); }
    void close(Process process) override;

private:
    platform::Launcher& inner_;
};

class TestSystem {
    struct Below;
    std::unique_ptr<Below> below_;
    platform::Platform own_;  // past what watches

public:
    enum class On { ThisSystem, Simulation };
    explicit TestSystem(On on = On::ThisSystem);
    ~TestSystem();
    TestSystem(const TestSystem&) = delete;
    TestSystem& operator=(const TestSystem&) = delete;

    platform::Platform& platform() { return platform_; }
    // The switches of the system in memory; null on a real one.
    Simulation* simulation();

    watched::Registry registry;
    watched::Files files;
    watched::Modules modules;
    watched::Memory memory;
    PlacedSystem system;
    WatchedBrowser browser;
    RecordingLauncher launcher;
    ScriptedDesktop desktop;
    watched::Watch watch;  // of them all together

    // --- the registry, by paths such as "HKEY_CURRENT_USER\\Software\\..."; keys are made as needed

    void makeKey(const std::string& path);
    void setText(const std::string& path, const std::string& name, std::string_view text);
    void setDword(const std::string& path, const std::string& name, std::uint32_t number);
    void setBinary(const std::string& path, const std::string& name, const platform::Bytes& data);
    void set(const sample::Entry& entry);
    void import(const std::vector<sample::Entry>& entries);
    void deleteTree(const std::string& path);
    void deleteValue(const std::string& path, const std::string& name);

    bool exists(const std::string& path);
    std::vector<std::string> keys(const std::string& path);    // in the system's order
    std::vector<std::string> values(const std::string& path);  // names, in the system's order
    std::optional<sample::Entry> value(const std::string& path, const std::string& name);
    std::optional<std::string> text(const std::string& path, const std::string& name);  // without its zero
    std::optional<std::uint32_t> dword(const std::string& path, const std::string& name);

    // --- files and program files

    std::string programFolder() { return system.folder; }
    std::string path(const std::string& name) { return system.folder + "\\" + name; }  // in the program folder
    void writeFile(const std::string& name, std::string_view bytes);                   // in the program folder
    std::optional<std::string> readFile(const std::string& name);
    std::vector<std::string> filesIn(const std::string& folder, const std::string& wildcard = "*");
    // Puts a program file into the program folder, where it is found by its full path, which this tells, and by its
    // name alone.
    std::string addProgram(const std::string& name, const simulated::ProgramFile& program);

    // --- what a machine has

    void seedZones();    // the five built-in zones
    void seedBrowser();  // what sandbox/browser.reg holds, two more zones and the browser's version among it
    // Program files with the icons that the built-in zones name, and the program's own: icons of 16, 32 and 48 pixels.
    void seedModules();
    // As the browser's library and the registry tell it: "5.00.2614.3500". "": no browser.
    void setBrowserVersion(const std::string& version);
    // Ends the programs that were started; a real system's are waited for.
    void endPrograms();

private:
    void reset();
    platform::HKey openPath(const std::string& path, platform::AccessMask access, bool create);
    std::vector<std::string> names(const std::string& path, bool ofKeys);

    platform::Platform platform_;
};
