// What the program asks of the running system: folders, clock, versions, starting another program.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Registry.h"

namespace platform {

// The local time. Month and day from 1.
struct LocalTime {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
};

// What GetVersionExA fills in (OSVERSIONINFOA, 148 bytes).
struct SystemVersion {
    std::uint32_t major = 0, minor = 0, build = 0, platformId = 0;
};
inline constexpr std::uint32_t PlatformWin32Nt = 2;  // VER_PLATFORM_WIN32_NT

class System {
public:
    virtual ~System() = default;

    virtual std::string GetWindowsDirectoryA() = 0;  // "C:\\WINDOWS", without a trailing backslash
    virtual std::string GetSystemDirectoryA() = 0;   // "C:\\WINDOWS\\SYSTEM", the same
    virtual std::string programFolder() = 0;         // of the running program, a backslash only for a root
    virtual std::string programName() = 0;           // base name of the running program, without ".exe"
    virtual std::string ExpandEnvironmentStringsA(const std::string& text) = 0;
    virtual LocalTime GetLocalTime() = 0;
    // Milliseconds since some moment; starts again at 0 after 49 days.
    virtual std::uint32_t GetTickCount() = 0;
    virtual bool GetVersionExA(SystemVersion& version) = 0;
    // Whether a byte begins a character of two in the system's code page.
    virtual bool IsDBCSLeadByte(std::uint8_t) { return false; }
};

// What DllGetVersion of the browser's library answers (DLLVERSIONINFO, 20 bytes).
struct LibraryVersion {
    std::uint32_t major = 0, minor = 0, build = 0;
};

class Browser {
public:
    virtual ~Browser() = default;
    // The version of the browser's light-weight utility library, which stands for the browser's own. A code other
    // than Success leaves zeros.
    virtual Result DllGetVersion(LibraryVersion& version) = 0;
};

class Launcher {
public:
    using Process = std::uintptr_t;  // 0 is no process

    virtual ~Launcher() = default;
    // Starts `program` (full path) hidden with `arguments`, in the folder it is in, and does not wait. The process is
    // closed by the caller.
    virtual Result start(const std::string& program, const std::string& arguments, Process& process) = 0;
    virtual bool running(Process process) = 0;
    virtual void close(Process process) = 0;
};

}  // namespace platform
