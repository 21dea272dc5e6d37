// The native window of a form.
//
// A window of the system's dialog class: Tab, access keys, Enter and Esc are the dialog manager's. The form
// draws its lines and pictures; every other control is a window, which the form never paints over.
#pragma once

#include <string>
#include <vector>

#include "ui/Form.h"
#include "win32/Screen.h"

namespace win32 {

class ControlWindow;

class FormPeer : public ui::Form::Peer {
public:
    // `all`: the peers of all forms, in which this one is for as long as it lives.
    FormPeer(ui::Form& form, const Screen& screen, HWND owner, std::vector<FormPeer*>& all);
    FormPeer(const FormPeer&) = delete;
    FormPeer& operator=(const FormPeer&) = delete;
    ~FormPeer() override;

    // The peer of a form; null while it has none.
    static FormPeer* of(const ui::Form& form) { return form.peerAs<FormPeer>(); }

    void applyCaption() override;
    void applySize() override;
    void applyHook() override;
    void applyPointer() override;
    void applyBusy() override;
    void applyDefaultButton() override;
    void applyLines() override;
    void applyUnloaded() override;

    ui::Form& form() const { return form_; }
    HWND window() const { return window_; }
    const Screen& screen() const { return screen_; }

    // Has an area of the form's own drawing painted again, in pixels.
    void redraw(const RECT& area);
    // Shows the window, in the middle of its owner or the screen.
    void show();
    // From showing to unloading: only then does the form hear what happens to its windows.
    bool live() const { return live_; }
    void ignoreEvents() { live_ = false; }
    bool unloaded() const { return unloaded_; }

    // What else happens when the form is unloaded, before its window is hidden.
    void whenUnloaded(ui::Event action) { whenUnloaded_ = action; }
    // The number of modal loops that were running when the form was shown, its own counted.
    int modalLoops = 0;

    // Offers a message to the form; tells whether it was for the form or one of its controls, and has been handled.
    bool dialogMessage(MSG& message);

    // A number that no other control or timer of this form has had.
    std::uintptr_t newIdentifier() { return ++lastIdentifier_; }
    // For the windows of the form's controls.
    void addControl(ControlWindow& control) { controls_.push_back(&control); }
    void removeControl(ControlWindow& control);
    // The button that Enter presses has the thick border: the one with the focus, or else the form's default button.
    void markDefaultButton();
    void setToolTip(HWND control, const std::string& text);
    // Which window has a menu open, the form's or that of a control; null for none.
    void inMenu(HWND window) { menuOf_ = window; }

private:
    static INT_PTR CALLBACK dialogProcedure(HWND window, UINT message, WPARAM w, LPARAM l);
    static LRESULT CALLBACK hookProcedure(HWND window, UINT message, WPARAM w, LPARAM l);
    bool handle(UINT message, WPARAM w, LPARAM l);
    bool answer(LRESULT result);
    bool command(int id, int code, HWND control);
    bool notify(const NMHDR& header);
    bool resized(SIZE client);
    bool limitSize(MINMAXINFO& limits) const;
    bool endMenu();  // whether there was one
    bool placed();
    bool key(WPARAM key);
    bool showPointer();
    bool paint();
    void draw(HDC context) const;
    RECT placeOf(const ui::Line& line) const;
    bool focusActiveControl();
    ControlWindow* find(HWND window) const;
    void setIcons();

    ui::Form& form_;
    const Screen& screen_;
    HWND owner_;
    std::vector<FormPeer*>& all_;
    ui::Event whenUnloaded_;
    HWND window_ = nullptr;
    HWND toolTips_ = nullptr;
    HWND menuOf_ = nullptr;
    WNDPROC hookedProcedure_ = nullptr;  // what the hook passes messages on to; null while there is no hook
    std::vector<ControlWindow*> controls_;
    // Counted from well above the dialog manager's own identifiers IDOK and IDCANCEL, 1 and 2: Windows 95 keeps 16 bits
    // of a timer's.
    std::uintptr_t lastIdentifier_ = 100;
    Icon smallIcon_, largeIcon_;
    bool live_ = false;
    bool unloaded_ = false;
};

}  // namespace win32
