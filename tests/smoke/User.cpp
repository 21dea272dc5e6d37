#include "User.h"

#include <stdexcept>

namespace smoke {

namespace {

constexpr DWORD Patience = 30000, Interval = 20;  // milliseconds

// Another process's text comes with the message alone; GetWindowTextA has only captions. A program that hangs answers
// nothing; the user is not to hang with it. A window may just have gone.
std::string textOf(HWND window) {
    char text[512] = "";
    DWORD_PTR ignored = 0;
    if (!SendMessageTimeoutA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG,
                             Patience, &ignored) &&
        IsWindow(window))
        throw std::runtime_error("a window does not answer");
    return text;
}

// What whoever waits in vain has before him.
std::string situation() {
    const HWND front = GetForegroundWindow();
    std::string text = "in front there is \"" + textOf(front) + "\":";
    for (HWND child = nullptr; (child = FindWindowExA(front, child, nullptr, nullptr));)
        if (IsWindowVisible(child)) text += " [" + textOf(child) + "]";
    return text;
}

}  // namespace

User::~User() {
    if (!process_.hProcess) return;
    TerminateProcess(process_.hProcess, 99);
    WaitForSingleObject(process_.hProcess, Patience);  // its file can be written over only then
    CloseHandle(process_.hProcess);
    CloseHandle(process_.hThread);
}

void User::start(const std::string& program) {
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    std::string commandLine = "\"" + program + "\"";
    if (!CreateProcessA(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process_))
        throw std::runtime_error(program + " does not start: error " + std::to_string(GetLastError()));
}

DWORD User::exitCode() {
    if (WaitForSingleObject(process_.hProcess, Patience) != WAIT_OBJECT_0)
        throw std::runtime_error("the program does not end; " + situation());
    DWORD code = 0;
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
}

// Waiting ---------------------------------------------------------------------------------------------------------

void User::waitFor(const std::string& what, const std::function<bool()>& there) {
    const DWORD start = GetTickCount();
    while (!there()) {
        if (WaitForSingleObject(process_.hProcess, Interval) == WAIT_OBJECT_0)
            throw std::runtime_error("no " + what + ": the program has ended with code " + std::to_string(exitCode()));
        if (GetTickCount() - start > Patience) throw std::runtime_error("no " + what + "; " + situation());
    }
}

HWND User::waitForWindow(const std::string& title) {
    HWND found = nullptr;
    waitFor("window \"" + title + "\"", [&] {
        found = GetForegroundWindow();
        return IsWindowVisible(found) && IsWindowEnabled(found) && textOf(found) == title;
    });
    return found;
}

HWND User::control(HWND window, const char* className, const char* text) {
    HWND found = nullptr;
    waitFor(std::string("control ") + className, [&] {
        do found = FindWindowExA(window, found, className, text);
        while (found && !IsWindowVisible(found));
        return found != nullptr;
    });
    return found;
}

// Doing -----------------------------------------------------------------------------------------------------------

void User::press(WORD key, WORD with) {
    for (const auto& [struck, up] : {std::pair{with, false}, {key, false}, {key, true}, {with, true}}) {
        INPUT input = {};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = struck;
        input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
        if (struck) SendInput(1, &input, sizeof input);
    }
}

void User::chooseMenu(char menu, char item) {
    press(static_cast<WORD>(menu), VK_MENU);
    press(static_cast<WORD>(item));
}

// Letters, digits and blanks, as keys.
void User::type(const std::string& text) {
    for (const char c : text) {
        const SHORT key = VkKeyScanA(c);
        press(LOBYTE(key), HIBYTE(key) & 1 ? WORD{VK_SHIFT} : WORD{0});
    }
}

// The mouse's coordinates are parts of the screen, of which each direction has 65536.
void User::click(HWND control) {
    RECT place = {};
    GetWindowRect(control, &place);
    const auto part = [](LONG pixel, int size) {
        return MulDiv(static_cast<int>(pixel), 65536, size) + 65536 / size / 2;
    };
    for (const DWORD action : {MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP}) {
        INPUT input = {};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = action;
        input.mi.dx = part((place.left + place.right) / 2, GetSystemMetrics(SM_CXSCREEN));
        input.mi.dy = part((place.top + place.bottom) / 2, GetSystemMetrics(SM_CYSCREEN));
        SendInput(1, &input, sizeof input);
    }
}

}  // namespace smoke
