#include "support/RealSystem.h"

#ifndef _WIN32

std::unique_ptr<RealSystem> RealSystem::make() {
    return nullptr;
}

#else

#include <chrono>
#include <filesystem>
#include <map>
#include <set>
#include <thread>

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

class WaitingLauncher : public win32::Launcher {
public:
    platform::Result start(const std::string& program, const std::string& arguments, Process& process) override {
        const platform::Result code = win32::Launcher::start(program, arguments, process);
        if (process != 0) processes_.insert(process);
        return code;
    }
    void close(Process process) override {
        processes_.erase(process);
        win32::Launcher::close(process);
    }
    // Until all have ended, or half a minute.
    void wait() {
        for (const Process process : processes_)
            for (int tries = 0; running(process) && tries < 3000; ++tries)
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }

private:
    std::set<Process> processes_;
};

class WindowsSystem : public RealSystem {
public:
    WindowsSystem() {
        static int count = 0;
        const auto base = std::filesystem::temp_directory_path();
        do {
            folder_ = base / ("Tavimor tests " + std::to_string(++count));
            clear();
        } while (!std::filesystem::create_directory(folder_));
    }
    ~WindowsSystem() override { clear(); }

    platform::Registry& registry() override { return registry_; }
    platform::Files& files() override { return files_; }
    platform::Modules& modules() override { return modules_; }
    platform::Memory& memory() override { return memory_; }
    platform::System& system() override { return system_; }
    platform::Browser& browser() override { return browser_; }
    platform::Launcher& launcher() override { return launcher_; }
    ui::Desktop& desktop() override { return desktop_; }

    std::string folder() override { return folder_.string(); }
    void addProgram(const std::string& path, const simulated::ProgramFile& program) override {
        const platform::Bytes bytes = programFileBytes(program);
        std::uint32_t written = 0;
        files_.create(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()}, written);
        modules_.paths[simulated::fold(path.substr(path.rfind('\\') + 1))] = path;
    }
    void waitForPrograms() override { launcher_.wait(); }

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
    win32::System system_;
    win32::Browser browser_;
    WaitingLauncher launcher_;
    win32::Desktop desktop_;
};

}  // namespace

std::unique_ptr<RealSystem> RealSystem::make() {
    return std::make_unique<WindowsSystem>();
}

#endif
