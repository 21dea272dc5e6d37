// The native window of a form.
//
// A window of the system's dialog class: Tab, access keys, Enter and Esc are the dialog manager's. Drawn on it are the
// form's lines, and the controls that have no window of their own.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/Form.h"
#include "win32/Screen.h"

namespace win32 {

class ControlWindow;

class FormPeer : public ui::Form::Peer {
public:
    // `destroyed` is called when the peer is.
    FormPeer(ui::Form& form, const Screen& screen, HWND owner, std::function<void(FormPeer&)> destroyed);
    FormPeer(const FormPeer&) = delete;
    FormPeer& operator=(const FormPeer&) = delete;
    ~FormPeer() override;

    void applyCaption() override;
    void applySize() override;
    void applyHook() override;
    void applyPointer() override;
    void applyDefaultButton() override;
    void applyLines() override;
    void applyUnloaded() override;

    ui::Form& form() const { return form_; }
    HWND window() const { return window_; }
    const Screen& screen() const { return screen_; }

    // Paints a place again, once the window is visible.
    void redraw(const ui::Bounds& place);
    // Shows the window, in the middle of its owner or the screen.
    void show();
    // Between showing and unloading: only then does what happens to the windows reach the form.
    bool live() const { return live_; }
    void silence() { live_ = false; }
    bool unloaded() const { return unloaded_; }

    // What else happens when the form is unloaded, before its window is hidden.
    void whenUnloaded(std::function<void()> action) { whenUnloaded_ = std::move(action); }
    // The number of modal loops that were running when the form was shown, its own counted.
    int modalLoops = 0;

    // Keyboard messages of the form and its controls go through here. Tells whether that was all.
    bool dialogMessage(MSG& message);

    // The controls' entries. Gives the control's identifier.
    std::uintptr_t enter(ControlWindow& control);
    void leave(ControlWindow& control);
    void setToolTip(HWND control, const std::string& text);

private:
    static INT_PTR CALLBACK dialogProcedure(HWND window, UINT message, WPARAM w, LPARAM l);
    static LRESULT CALLBACK hookProcedure(HWND window, UINT message, WPARAM w, LPARAM l);
    bool handle(UINT message, WPARAM w, LPARAM l);
    bool answer(LRESULT result);
    bool command(int id, int code, HWND control);
    bool notify(const NMHDR& header);
    bool resized(SIZE client);
    bool limitSize(MINMAXINFO& limits) const;
    bool showPointer();
    bool paint();
    void draw(HDC context) const;
    bool focusActiveControl();
    ControlWindow* find(HWND window) const;
    void setIcons();

    ui::Form& form_;
    const Screen& screen_;
    HWND owner_;
    std::function<void(FormPeer&)> destroyed_;
    std::function<void()> whenUnloaded_;
    HWND window_ = nullptr;
    HWND toolTips_ = nullptr;
    WNDPROC kept_ = nullptr;  // the procedure that the hook stands in front of
    std::vector<ControlWindow*> controls_;
    bool live_ = false;
    bool unloaded_ = false;
};

}  // namespace win32
