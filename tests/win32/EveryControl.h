// A form with one of every control, whose events are written down, and what drives its windows.
#pragma once

#include <gtest/gtest.h>

#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/CommandButton.h"
#include "ui/Desktop.h"
#include "ui/Frame.h"
#include "ui/ImageList.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/Menu.h"
#include "ui/PictureButton.h"
#include "ui/ProgressBar.h"
#include "ui/TabStrip.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"
#include "ui/TreeView.h"
#include "win32/Desktop.h"
#include "win32/WindowsHeaders.h"

inline HWND windowOf(const ui::Control& control) {
    return reinterpret_cast<HWND>(win32::Desktop::nativeHandle(control));
}
inline HWND windowOf(const ui::Form& form) {
    return reinterpret_cast<HWND>(win32::Desktop::nativeHandle(form));
}
inline LRESULT ask(const ui::Control& control, UINT message, WPARAM w = 0, LPARAM l = 0) {
    return SendMessageA(windowOf(control), message, w, l);
}
inline std::string textOf(HWND window) {
    char text[256] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

// Whether the region that `get` fetches has that point.
template <class Get>
bool regionHas(POINT at, Get get) {
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    get(region);
    const bool has = PtInRegion(region, at.x, at.y);
    DeleteObject(region);
    return has;
}

// A square icon whose left half is red and whose right half is blue; its lower half is not seen.
ui::Picture halvedIcon(int size);
// A bitmap without colour table, 4 by 4 pixels of 24 bits.
ui::Picture plainBitmap();

struct EveryControl : ui::Form {
    explicit EveryControl(ui::Desktop& desktop, Kind kind = Kind::Main);
    ~EveryControl() override { unload(); }

    ui::Label label{*this, "label", {100, 100, 1500, 225}, "&Name:"};
    ui::Image image{*this, "image", {5800, 100, 500, 500}};
    ui::TextBox text{*this, "text", {1700, 100, 1500, 315}};
    ui::CheckBox check{*this, "check", {100, 500, 1500, 315}, "&Check"};
    ui::ComboBox combo{*this, "combo", {1700, 500, 1500, 315}};
    ui::PictureButton picture{*this, "picture", {3400, 100, 600, 600}, "Icon"};
    ui::ProgressBar progress{*this, "progress", {4200, 100, 1500, 225}};
    ui::ListView shows{
        *this, "shows", {100, 900, 3000, 1800}, ui::ListView::View::Icon, ui::ListView::Clicks::OnSelect};
    ui::ImageList icons{*this, "icons", 32};  // younger than a list that shows them
    ui::ListView acts{
        *this, "acts", {3200, 900, 3000, 1800}, ui::ListView::View::Report, ui::ListView::Clicks::OnActivate};
    ui::TreeView tree{*this, "tree", {100, 2800, 3000, 1800}};
    ui::TabStrip tabs{*this, "tabs", {3200, 2800, 3000, 1800}, {"One", "Two"}};
    ui::Image page{*this, "page", {3300, 3200, 2800, 1300}};
    ui::CheckBox onPage{page, "onPage", {100, 100, 1500, 315}, "On the page"};
    ui::Frame frame{*this, "frame", {100, 4700, 3000, 900}, "Frame"};
    ui::CommandButton inFrame{frame, "inFrame", {100, 300, 1200, 375}, "&Inside"};
    ui::CommandButton ok{*this, "ok", {3200, 4800, 1200, 375}, "&OK"};
    ui::CommandButton cancel{*this, "cancel", {4500, 4800, 1200, 375}, "Cance&l"};
    ui::Timer timer{*this, "timer", 1};
    ui::MenuItem& file = menu().add("file", "&File");
    ui::MenuItem &exit = file.add("exit", "E&xit"), &line = file.add("line", "-");

    std::vector<std::string> events;  // names, with the item where there is one
    int resizes = 0;
    ui::Event onUnload;

protected:
    void Form_Unload() override { ui::raise(onUnload); }
    void Form_Resize() override { ++resizes; }
};

// Drives windows as the user does.
struct WindowsTest : testing::Test {
    win32::Desktop desktop;

    // As the user does it: messages in the queue, then handled.
    void post(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0) { PostMessageA(window, message, w, l); }
    void press(const ui::Control& control, WPARAM key);
    void pressFocused(WPARAM key);
    void clickAt(const ui::Control& control, POINT point, UINT press = WM_LBUTTONDOWN);
};
