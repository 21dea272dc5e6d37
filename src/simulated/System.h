// A system whose facts are set by whoever makes it.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/System.h"
#include "simulated/Watch.h"

namespace simulated {

class System : public platform::System {
public:
    Watch watch;
    std::string windowsFolder = "C:\\WINDOWS";
    std::string systemFolder = "C:\\WINDOWS\\SYSTEM";
    std::string folder = "C:\\Tavimor";
    std::string name = "Tavimor";
    platform::LocalTime now{2000, 3, 9, 14, 5, 7};
    std::uint32_t ticks = 0, ticksALook = 10;  // milliseconds, and how many pass from one look at them to the next
    platform::SystemVersion version{4, 10, 2222, 1};
    std::map<std::string, std::string> environment{{"windir", "C:\\WINDOWS"}, {"SystemRoot", "C:\\WINDOWS"}};

    std::string GetWindowsDirectoryA() override { return watch.before("GetWindowsDirectoryA") ? "" : windowsFolder; }
    std::string GetSystemDirectoryA() override { return watch.before("GetSystemDirectoryA") ? "" : systemFolder; }
    std::string programFolder() override { return folder; }
    std::string programName() override { return name; }
    std::string ExpandEnvironmentStringsA(const std::string& text) override;
    platform::LocalTime GetLocalTime() override { return now; }
    std::uint32_t GetTickCount() override { return ticks += ticksALook; }
    bool GetVersionExA(platform::SystemVersion& told) override {
        told = version;
        return true;
    }
};

class Browser : public platform::Browser {
public:
    Watch watch;
    platform::LibraryVersion version{5, 0, 2614};
    platform::Result answer = platform::Success;

    platform::Result DllGetVersion(platform::LibraryVersion& version) override;
};

class Launcher : public platform::Launcher {
public:
    struct Started {
        std::string program, arguments;
        bool running = true;
    };
    Watch watch;
    std::set<Process> open;  // not closed
    std::function<void(const Started&)> onStart;
    std::vector<Started> started;
    void endAll();

    platform::Result start(const std::string& program, const std::string& arguments, Process& process) override;
    bool running(Process process) override;
    void close(Process process) override;
};

}  // namespace simulated
