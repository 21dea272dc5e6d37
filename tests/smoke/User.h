// Somebody before the screen: starts a program, and has nothing of it but its windows. Types and clicks through the
// system's input, as keyboard and mouse do.
//
// What is waited for must come within half a minute; else std::runtime_error tells what did not, and what there is.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

// <commctrl.h> needs the above.
#include <commctrl.h>

namespace smoke {

class User {
public:
    User() = default;
    User(const User&) = delete;
    User& operator=(const User&) = delete;
    ~User();

    void start(const std::string& program);
    // What the program ended with.
    DWORD exitCode();

    void waitFor(const std::string& what, const std::function<bool()>& there);
    // The visible window of that title that takes input.
    HWND waitForWindow(const std::string& title);

    // The visible control of that class, and of that text if one is given.
    HWND control(HWND window, const char* className, const char* text = nullptr);

    void press(WORD key, WORD with = 0);
    // Opens a menu and chooses from it, by their access keys.
    void chooseMenu(char menu, char item);
    void type(const std::string& text);
    void click(HWND control);  // in its middle

private:
    PROCESS_INFORMATION process_ = {};
};

}  // namespace smoke
