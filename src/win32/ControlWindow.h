// The native window of a control, and the peer around it.
//
// Every control's window stands directly on the form's window and is subclassed by one procedure: it tells of the
// focus, and lets a peer answer messages before the native control does.
#pragma once

#include <optional>

#include "ui/Control.h"
#include "win32/Callbacks.h"
#include "win32/FormPeer.h"
#include "win32/Screen.h"

namespace win32 {

class ControlWindow {
public:
    struct Class {
        const char* name;
        DWORD style = 0, extended = 0;
    };
    ControlWindow(ui::Control& control, const Class& native, const std::string& text);
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;
    virtual ~ControlWindow();

    HWND window() const { return window_; }
    FormPeer& form() const { return form_; }
    const Screen& screen() const { return form_.screen(); }

    // What the native control reports to its form: WM_COMMAND's code, or a WM_NOTIFY and the answer to it. Not called
    // while the program is applying state, nor before the form is shown or after it has been unloaded.
    virtual void command(int) {}
    virtual LRESULT notify(const NMHDR&) { return 0; }
    // Whether what the native control reports is the user's doing.
    bool reporting() const { return applying_ == 0 && form_.live(); }

    void place();
    void show();
    void enable();
    void focus();
    // Paints what was held back now, and not when the program next waits.
    void resumePainting();

protected:
    // Native controls echo what a program does to them; while one of these lives the echo is not heard.
    class Applying {
    public:
        explicit Applying(ControlWindow& window) : window_(window) { ++window_.applying_; }
        Applying(const Applying&) = delete;
        Applying& operator=(const Applying&) = delete;
        ~Applying() { --window_.applying_; }

    private:
        ControlWindow& window_;
    };

    // The peer's own answer to a message, or nothing to leave it to the native control.
    virtual std::optional<LRESULT> message(UINT, WPARAM, LPARAM) { return std::nullopt; }
    LRESULT native(UINT message, WPARAM w, LPARAM l) { return CallWindowProcA(previous_, window_, message, w, l); }
    // Sends without hearing the echo.
    LRESULT apply(UINT message, WPARAM w = 0, LPARAM l = 0);
    LRESULT apply(UINT message, WPARAM w, const void* l) { return apply(message, w, reinterpret_cast<LPARAM>(l)); }

    // Holds back painting until the handler that is changing the control has ended: many small changes in a row cost
    // one picture.
    void holdPainting();
    virtual void paintingResumed() {}

    virtual RECT bounds() const;  // in pixels on the form
    // A new control stands inside this one, but its window is a neighbour below this one's.
    virtual void lieBehind() {}

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l);
    void passFocusOn();
    bool framed() const;

    ui::Control& control_;
    FormPeer& form_;
    HWND window_ = nullptr;
    WNDPROC previous_ = nullptr;
    int applying_ = 0;
    bool held_ = false;
};

// Whether a WM_GETDLGCODE with this parameter asks who gets the Enter key.
inline bool asksForEnter(LPARAM l) {
    const auto* message = reinterpret_cast<const MSG*>(l);
    return message && message->message == WM_KEYDOWN && message->wParam == VK_RETURN;
}

// A peer of the control class C.
template <class C>
class ControlPeer : public C::Peer, public ControlWindow {
public:
    ControlPeer(C& control, const Class& native, const std::string& text = {})
        : ControlWindow(control, native, text), control_(control) {}

    void applyBounds() override { place(); }
    void applyShowing() override { show(); }
    void applyEnabled() override { enable(); }
    void applyText() override {}
    void applyFocus() override { focus(); }
    void applyToolTip() override { form().setToolTip(window(), control_.toolTip()); }

protected:
    C& control_;
};

// Of a control that shows a caption.
template <class C>
class CaptionPeer : public ControlPeer<C> {
public:
    CaptionPeer(C& control, const ControlWindow::Class& native)
        : ControlPeer<C>(control, native, control.caption()), told_(control.caption()) {}
    void applyText() override {
        if (ui::store(told_, this->control_.caption())) this->apply(WM_SETTEXT, 0, told_.c_str());
    }

private:
    std::string told_;
};

}  // namespace win32
