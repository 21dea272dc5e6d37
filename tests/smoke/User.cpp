#include "User.h"

#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace smoke {

namespace {

constexpr DWORD Patience = 30000, Interval = 20;  // milliseconds

// Memory of another process, for messages that point to what they ask for.
class Memory {
public:
    Memory(HANDLE process, SIZE_T size)
        : process_(process), at_(VirtualAllocEx(process, nullptr, size, MEM_COMMIT, PAGE_READWRITE)) {
        if (!at_) throw std::runtime_error("no memory in the program");
    }
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;
    ~Memory() { VirtualFreeEx(process_, at_, 0, MEM_RELEASE); }

    char* at() const { return static_cast<char*>(at_); }
    void write(const void* from, SIZE_T size) { WriteProcessMemory(process_, at_, from, size, nullptr); }
    void read(void* to, SIZE_T size) const { ReadProcessMemory(process_, at_, to, size, nullptr); }

private:
    HANDLE process_;
    void* at_;
};

// A program that hangs answers nothing; the user is not to hang with it. A window may just have gone: it answers 0.
DWORD_PTR send(HWND window, UINT message, WPARAM w, LPARAM l) {
    DWORD_PTR result = 0;
    if (!SendMessageTimeoutA(window, message, w, l, SMTO_ABORTIFHUNG, Patience, &result) && IsWindow(window))
        throw std::runtime_error("a window does not answer message " + std::to_string(message));
    return result;
}

std::string classOf(HWND window) {
    char name[128] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

BOOL CALLBACK addVisible(HWND window, LPARAM list) {
    if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::vector<HWND> visibleBelow(HWND window) {
    std::vector<HWND> found;
    EnumChildWindows(window, addVisible, reinterpret_cast<LPARAM>(&found));
    return found;
}

INPUT keyStroke(WORD key, bool up) {
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = up ? DWORD{KEYEVENTF_KEYUP} : 0;
    return input;
}

}  // namespace

// Another process's text comes with the message alone; GetWindowTextA has only captions.
std::string textOf(HWND window) {
    char text[512] = "";
    send(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
}

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
        if (WaitForSingleObject(process_.hProcess, Interval) == WAIT_OBJECT_0) {
            DWORD code = 0;
            GetExitCodeProcess(process_.hProcess, &code);
            char text[64];
            std::snprintf(text, sizeof text, "the program has ended with code 0x%lX", code);
            throw std::runtime_error("no " + what + ": " + text);
        }
        if (GetTickCount() - start > Patience) throw std::runtime_error("no " + what + "; " + situation());
    }
}

HWND User::waitForWindow(const std::string& title) {
    HWND found = nullptr;
    waitFor("window \"" + title + "\"", [&] {
        for (const HWND window : windows())
            if (IsWindowEnabled(window) && window == GetForegroundWindow() && textOf(window) == title) found = window;
        return found != nullptr;
    });
    return found;
}

void User::waitForNoWindow(const std::string& title) {
    waitFor("end of the window \"" + title + "\"", [&] {
        for (const HWND window : windows())
            if (textOf(window) == title) return false;
        return true;
    });
}

std::vector<HWND> User::windows() const {
    std::vector<HWND> all;
    EnumWindows(addVisible, reinterpret_cast<LPARAM>(&all));
    std::erase_if(all, [&](HWND window) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        return process != process_.dwProcessId;
    });
    return all;
}

std::string User::situation() const {
    std::string text = "there is";
    for (const HWND window : windows()) {
        text += "\n  window \"" + textOf(window) + "\":";
        for (const HWND child : visibleBelow(window))
            if (const std::string caption = textOf(child); !caption.empty()) text += " [" + caption + "]";
    }
    return text;
}

// Looking ---------------------------------------------------------------------------------------------------------

HWND User::control(HWND window, const std::string& className, const std::string& text) {
    HWND found = nullptr;
    waitFor("control " + className + " \"" + text + "\"", [&] {
        for (const HWND child : visibleBelow(window)) {
            RECT place = {};
            GetWindowRect(child, &place);
            if (place.right <= 0 || lstrcmpiA(classOf(child).c_str(), className.c_str()) != 0) continue;
            if (!text.empty() && textOf(child) != text) continue;
            found = child;
            return true;
        }
        return false;
    });
    return found;
}

bool User::shows(HWND window, const std::string& text) {
    for (const HWND child : visibleBelow(window))
        if (textOf(child) == text) return true;
    return false;
}

std::vector<std::string> User::itemsOf(HWND list) {
    struct Asked {
        LVITEMA item;
        char text[256];
    };
    std::vector<std::string> items;
    const int count = static_cast<int>(send(list, LVM_GETITEMCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        Memory memory(process_.hProcess, sizeof(Asked));
        Asked asked = {};
        asked.item.mask = LVIF_TEXT;
        asked.item.iItem = i;
        asked.item.pszText = memory.at() + offsetof(Asked, text);
        asked.item.cchTextMax = sizeof asked.text;
        memory.write(&asked, sizeof asked);
        send(list, LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(memory.at()));
        memory.read(&asked, sizeof asked);
        items.emplace_back(asked.text);
    }
    return items;
}

// Doing -----------------------------------------------------------------------------------------------------------

void User::press(WORD key, WORD with) {
    std::vector<INPUT> strokes;
    if (with) strokes.push_back(keyStroke(with, false));
    strokes.push_back(keyStroke(key, false));
    strokes.push_back(keyStroke(key, true));
    if (with) strokes.push_back(keyStroke(with, true));
    SendInput(static_cast<UINT>(strokes.size()), strokes.data(), sizeof(INPUT));
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

void User::click(HWND control) {
    RECT place = {};
    GetWindowRect(control, &place);
    clickAt({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
}

void User::clickItem(HWND list, int index) {
    RECT label = {LVIR_LABEL, 0, 0, 0};
    Memory memory(process_.hProcess, sizeof label);
    memory.write(&label, sizeof label);
    send(list, LVM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(memory.at()));
    memory.read(&label, sizeof label);
    POINT middle = {(label.left + label.right) / 2, (label.top + label.bottom) / 2};
    ClientToScreen(list, &middle);
    clickAt(middle);
}

// The mouse's coordinates are parts of the screen, of which each direction has 65536.
void User::clickAt(POINT onScreen) {
    const auto part = [](LONG pixel, int size) {
        return MulDiv(static_cast<int>(pixel), 65536, size) + 65536 / size / 2;
    };
    INPUT inputs[3] = {};
    const DWORD flags[3] = {MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP};
    for (int i = 0; i < 3; ++i) {
        inputs[i].type = INPUT_MOUSE;
        inputs[i].mi.dwFlags = flags[i];
    }
    inputs[0].mi.dx = part(onScreen.x, GetSystemMetrics(SM_CXSCREEN));
    inputs[0].mi.dy = part(onScreen.y, GetSystemMetrics(SM_CYSCREEN));
    SendInput(3, inputs, sizeof(INPUT));
}

}  // namespace smoke
