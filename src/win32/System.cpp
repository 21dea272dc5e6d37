#include "win32/System.h"

#include <charconv>
#include <cstring>

#include "win32/DelayLoaded.h"
#include "win32/Registry.h"

namespace win32 {

using namespace platform;

namespace {

static_assert(PlatformWin32Nt == VER_PLATFORM_WIN32_NT);

// The full path of the running program.
std::string programFile() {
    char path[MAX_PATH + 1] = "";
    const DWORD length = GetModuleFileNameA(nullptr, path, MAX_PATH);
    return {path, length};
}

std::string folder(UINT(WINAPI* get)(LPSTR, UINT)) {
    char path[MAX_PATH + 1] = "";
    const UINT length = get(path, MAX_PATH);
    return {path, length < MAX_PATH ? length : 0};
}

bool onWine() {
    const HMODULE ntdll = GetModuleHandleA("ntdll.dll");
    return ntdll && GetProcAddress(ntdll, "wine_get_version");
}

// "5.00.2614.3500": major, minor and build.
LibraryVersion parse(const std::string& text) {
    LibraryVersion version;
    const char* at = text.data();
    const char* const end = at + text.size();
    for (std::uint32_t* number : {&version.major, &version.minor, &version.build}) {
        const auto parsed = std::from_chars(at, end, *number);
        if (parsed.ec != std::errc{} || parsed.ptr == end || *parsed.ptr != '.') break;
        at = parsed.ptr + 1;
    }
    return version;
}

Result registeredVersion(LibraryVersion& version) {
    Registry registry;
    HKey key = 0;
    Result code =
        registry.RegOpenKeyExA(HKeyLocalMachine, "Software\\Microsoft\\Internet Explorer", KeyQueryValue, key);
    if (code != Success) return code;
    char text[64];
    RegType type = RegNone;
    std::uint32_t size = sizeof text;
    code = registry.RegQueryValueExA(key, "Version", type, reinterpret_cast<std::uint8_t*>(text), size);
    registry.RegCloseKey(key);
    if (code == Success && type == RegSz) version = parse({text, size});
    return code;
}

// DLLVERSIONINFO, which the headers declare only for newer versions of the shell.
struct DllVersionInfo {
    DWORD size = sizeof(DllVersionInfo);
    DWORD major = 0, minor = 0, build = 0, platform = 0;
};
static_assert(sizeof(DllVersionInfo) == 20);

Result libraryVersion(LibraryVersion& version) {
    const auto get = delayLoaded<HRESULT(WINAPI*)(DllVersionInfo*)>("shlwapi.dll", "DllGetVersion");
    if (!get) return GetLastError();
    DllVersionInfo info;
    const auto code = static_cast<Result>(get(&info));
    if (code == Success) version = {info.major, info.minor, info.build};
    return code;
}

}  // namespace

// In some code pages the second byte of a character may be that of a backslash.
std::size_t nameIn(const std::string& path) {
    const char* name = path.c_str();
    for (const char* at = name; *at; at = CharNextA(at))
        if (*at == '\\') name = at + 1;
    return static_cast<std::size_t>(name - path.c_str());
}

System::System() {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

// Where several users share a machine over the network each has a Windows folder of his own, without the programs of
// the real one. Systems that do not know that tell the only one there is.
std::string System::GetWindowsDirectoryA() {
    using Get = UINT(WINAPI*)(LPSTR, UINT);
    const auto shared = exported<Get>(GetModuleHandleA("kernel32.dll"), "GetSystemWindowsDirectoryA");
    const std::string found = shared ? folder(shared) : std::string();
    return found.empty() ? folder(::GetWindowsDirectoryA) : found;
}
std::string System::GetSystemDirectoryA() {
    return folder(::GetSystemDirectoryA);
}

std::string System::programFolder() {
    const std::string file = programFile();
    const std::size_t name = nameIn(file);
    return file.substr(0, name > 1 && file[name - 2] != ':' ? name - 1 : name);
}

std::string System::programName() {
    const std::string file = programFile();
    const std::string name = file.substr(nameIn(file));
    return name.substr(0, name.rfind('.'));
}

std::string System::ExpandEnvironmentStringsA(const std::string& text) {
    std::string expanded(text.size() + MAX_PATH, '\0');
    for (;;) {
        const DWORD needed =
            ::ExpandEnvironmentStringsA(text.c_str(), expanded.data(), static_cast<DWORD>(expanded.size()));
        if (needed == 0) return text;
        if (needed <= expanded.size()) break;
        expanded.resize(needed);
    }
    expanded.resize(std::strlen(expanded.c_str()));
    return expanded;
}

LocalTime System::GetLocalTime() {
    SYSTEMTIME now;
    ::GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

std::uint32_t System::GetTickCount() {
    return ::GetTickCount();
}

bool System::GetVersionExA(SystemVersion& version) {
    OSVERSIONINFOA info = {};
    info.dwOSVersionInfoSize = sizeof info;
    static_assert(sizeof info == 148);
    if (!::GetVersionExA(&info)) return false;
    version = {info.dwMajorVersion, info.dwMinorVersion, info.dwBuildNumber, info.dwPlatformId};
    return true;
}

bool System::IsDBCSLeadByte(std::uint8_t byte) {
    return ::IsDBCSLeadByte(byte) != FALSE;
}

Result Browser::DllGetVersion(LibraryVersion& version) {
    version = {};
    return onWine() ? registeredVersion(version) : libraryVersion(version);
}

Result Launcher::start(const std::string& program, const std::string& arguments, Process& process) {
    process = 0;
    std::string commandLine = "\"" + program + "\" " + arguments;
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_HIDE;
    PROCESS_INFORMATION started = {};
    // Not in this program's current folder, where libraries might be that it would load.
    const std::string own = program.substr(0, nameIn(program));
    if (!CreateProcessA(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        own.empty() ? nullptr : own.c_str(), &startup, &started))
        return GetLastError();
    CloseHandle(started.hThread);
    process = reinterpret_cast<Process>(started.hProcess);
    return Success;
}

bool Launcher::running(Process process) {
    return process != 0 && WaitForSingleObject(reinterpret_cast<HANDLE>(process), 0) == WAIT_TIMEOUT;
}

void Launcher::close(Process process) {
    if (process != 0) CloseHandle(reinterpret_cast<HANDLE>(process));
}

}  // namespace win32
