#include "support/RealSystem.h"

#ifndef _WIN32

std::unique_ptr<RealSystem> RealSystem::make(simulated::System&, simulated::Launcher&) {
    return nullptr;
}

#else

#include <filesystem>
#include <map>

#include "simulated/Names.h"
#include "support/ProgramFileBytes.h"
#include "win32/Desktop.h"
#include "win32/Files.h"
#include "win32/Memory.h"
#include "win32/Modules.h"
#include "win32/Registry.h"
#include "win32/System.h"

namespace {

// Finds the program files that a test has put into its folder by their names alone, before the system's own.
class FoundModules : public win32::Modules {
public:
    std::map<std::string, std::string> paths;  // by folded name

    platform::Module LoadLibraryExA(const std::string& file) override {
        return win32::Modules::LoadLibraryExA(pathOf(file));
    }
    std::uint32_t countIcons(const std::string& path) override { return win32::Modules::countIcons(pathOf(path)); }

private:
    std::string pathOf(const std::string& file) const {
        const auto found = paths.find(simulated::fold(file));
        return found == paths.end() ? file : found->second;
    }
};

// The system with the clock and the program's place set by the test.
class PlacedSystem : public win32::System {
public:
    explicit PlacedSystem(simulated::System& told) : told_(told) {}
    std::string programFolder() override { return told_.folder; }
    std::string programName() override { return told_.name; }
    platform::LocalTime GetLocalTime() override { return told_.now; }
    std::uint32_t GetTickCount() override { return told_.GetTickCount(); }

private:
    simulated::System& told_;
};

class RecordingLauncher : public win32::Launcher {
public:
    explicit RecordingLauncher(simulated::Launcher& record) : record_(record) {}
    platform::Result start(const std::string& program, const std::string& arguments, Process& process) override {
        record_.started.push_back({program, arguments});
        const platform::Result code = win32::Launcher::start(program, arguments, process);
        if (process != 0) record_.open.insert(process);
        return code;
    }
    void close(Process process) override {
        record_.open.erase(process);
        win32::Launcher::close(process);
    }

private:
    simulated::Launcher& record_;
};

class WindowsSystem : public RealSystem {
public:
    WindowsSystem(simulated::System& told, simulated::Launcher& started) : system_(told), launcher_(started) {
        static int count = 0;
        const auto base = std::filesystem::temp_directory_path();
        do {
            folder_ = base / ("Tavimor tests " + std::to_string(++count));
            clear();
        } while (!std::filesystem::create_directory(folder_));
        told.folder = folder_.string();
        told.windowsFolder = system_.GetWindowsDirectoryA();
        told.systemFolder = system_.GetSystemDirectoryA();
    }
    ~WindowsSystem() override { clear(); }

    platform::Platform platform() override {
        return {registry_, files_, modules_, memory_, system_, browser_, launcher_, desktop_};
    }
    void addProgram(const std::string& path, const simulated::ProgramFile& program) override {
        const platform::Bytes bytes = programFileBytes(program);
        std::uint32_t written = 0;
        files_.create(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()}, written);
        modules_.paths[simulated::fold(path.substr(path.rfind('\\') + 1))] = path;
    }

private:
    // A file that somebody still holds open stays, and the folder's number is passed over.
    void clear() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    std::filesystem::path folder_;
    win32::Registry registry_;
    win32::Files files_;
    FoundModules modules_;
    win32::Memory memory_;
    PlacedSystem system_;
    win32::Browser browser_;
    RecordingLauncher launcher_;
    win32::Desktop desktop_;
};

}  // namespace

std::unique_ptr<RealSystem> RealSystem::make(simulated::System& told, simulated::Launcher& started) {
    return std::make_unique<WindowsSystem>(told, started);
}

#endif
