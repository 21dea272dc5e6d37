// A system whose facts are set by whoever makes it.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/System.h"

namespace simulated {

class System : public platform::System {
public:
    std::string windowsFolder = "C:\\WINDOWS";
    std::string systemFolder = "C:\\WINDOWS\\SYSTEM";
    std::string folder = "C:\\Tavimor";
    std::string name = "Tavimor";
    platform::LocalTime now{2000, 3, 9, 14, 5, 7};
    std::uint32_t ticks = 0;
    platform::SystemVersion version{4, 10, 2222, 1};
    bool knowsItsVersion = true;
    std::map<std::string, std::string> environment{{"windir", "C:\\WINDOWS"}, {"SystemRoot", "C:\\WINDOWS"}};

    std::string GetWindowsDirectoryA() override { return windowsFolder; }
    std::string GetSystemDirectoryA() override { return systemFolder; }
    std::string programFolder() override { return folder; }
    std::string programName() override { return name; }
    std::string ExpandEnvironmentStringsA(const std::string& text) override;
    platform::LocalTime GetLocalTime() override { return now; }
    std::uint32_t GetTickCount() override { return ticks; }
    bool GetVersionExA(platform::SystemVersion& version) override;
};

class Browser : public platform::Browser {
public:
    platform::LibraryVersion version{5, 0, 2614};
    platform::Result answer = platform::Success;

    platform::Result DllGetVersion(platform::LibraryVersion& version) override;
};

class Launcher : public platform::Launcher {
public:
    struct Started {
        std::string program, arguments;
        bool running = true, open = true;
    };
    platform::Result answer = platform::Success;
    std::function<void(const Started&)> onStart;
    std::vector<Started> started;
    void endAll();

    platform::Result start(const std::string& program, const std::string& arguments, Process& process) override;
    bool running(Process process) override;
    void close(Process process) override;
};

}  // namespace simulated
