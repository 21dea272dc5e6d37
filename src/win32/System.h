// The running system: folders, clock, versions, other programs.
#pragma once

#include "platform/System.h"

namespace win32 {

// Where the file's name begins, after the last backslash.
std::size_t nameIn(const std::string& path);

class System : public platform::System {
public:
    // From now on a drive without a disk is an ordinary failure, and no question of the system's to the user.
    System();
    std::string GetWindowsDirectoryA() override;
    std::string GetSystemDirectoryA() override;
    std::string programFolder() override;
    std::string programName() override;
    std::string ExpandEnvironmentStringsA(const std::string& text) override;
    platform::LocalTime GetLocalTime() override;
    std::uint32_t GetTickCount() override;
    bool GetVersionExA(platform::SystemVersion& version) override;
    bool IsDBCSLeadByte(std::uint8_t byte) override;
};

// On Wine the library answers with a version of Wine's choosing; there the version in the registry is taken.
class Browser : public platform::Browser {
public:
    platform::Result DllGetVersion(platform::LibraryVersion& version) override;
};

class Launcher : public platform::Launcher {
public:
    platform::Result start(const std::string& program, const std::string& arguments, Process& process) override;
    bool running(Process process) override;
    void close(Process process) override;
};

}  // namespace win32
