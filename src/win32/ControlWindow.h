// The native window of a control.
//
// It is always a child of the form's window, even when the control stands in a container, and is subclassed: the
// subclass procedure reports the focus to the control, and lets a peer answer messages before the native control does.
#pragma once

#include <optional>
#include <string>

#include "ui/Control.h"
#include "win32/Callbacks.h"
#include "win32/FormPeer.h"
#include "win32/Screen.h"

namespace win32 {

class ControlWindow {
public:
    // The native window class, and the styles beyond those that every control has.
    struct Class {
        const char* name;
        DWORD style = 0, extended = 0;
    };
    ControlWindow(ui::Control& control, const Class& native, const std::string& text);
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;
    virtual ~ControlWindow();

    // The window of a control; null when it is a picture or its form has no window yet.
    static ControlWindow* of(const ui::Control& control);

    HWND window() const { return window_; }
    FormPeer& form() const { return form_; }
    const Screen& screen() const { return form_.screen(); }

    // What the native control reports to its form: WM_COMMAND's code, or a WM_NOTIFY and the answer to it. Not called
    // while the program is applying state, nor before the form is shown or after it has been unloaded.
    virtual void command(int) {}
    virtual LRESULT notify(const NMHDR&) { return 0; }
    // Whether what the native control reports is the user's doing.
    bool reporting() const { return applying_ == 0 && form_.live(); }

    // Bring the window up to date with the control's state.
    bool updateBounds();  // tells whether that moved it or changed its size
    void updateShowing();
    void updateEnabled();
    void updateFocus();
    // Paints now what was postponed, without waiting for the program to become idle.
    void resumePainting();

protected:
    // Native controls report changes that the program makes as well; while one of these lives such reports are ignored.
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
    LRESULT native(UINT message, WPARAM w, LPARAM l) {
        return CallWindowProcA(nativeProcedure_, window_, message, w, l);
    }
    // Sends a message that applies state: what the native control reports meanwhile is ignored.
    LRESULT apply(UINT message, WPARAM w = 0, LPARAM l = 0);
    LRESULT apply(UINT message, WPARAM w, const void* l) { return apply(message, w, reinterpret_cast<LPARAM>(l)); }

    // Postpones painting until the handler that is changing the control has returned, so that many changes in a row are
    // painted once.
    void postponePainting();
    bool paintingPostponed() const { return paintingPostponed_; }
    virtual void paintingResumed() {}

    virtual RECT bounds() const;  // in pixels on the form

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l);
    void passFocusOn();
    bool framed() const;

    ui::Control& control_;
    FormPeer& form_;
    HWND window_ = nullptr;
    WNDPROC nativeProcedure_ = nullptr;
    int applying_ = 0;
    bool paintingPostponed_ = false;
};

// Whether a WM_GETDLGCODE with this parameter asks who gets the Enter key.
inline bool asksForEnter(LPARAM l) {
    const auto* message = reinterpret_cast<const MSG*>(l);
    return message && message->message == WM_KEYDOWN && message->wParam == VK_RETURN;
}

}  // namespace win32
