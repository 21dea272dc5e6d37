#include "win32/ControlWindow.h"

#include "win32/SystemError.h"

namespace win32 {

namespace {
constexpr UINT ResumePainting = WM_APP + 1;
}

// Each control is a group of its own: the arrow keys belong to the control and do not wander over the form.
ControlWindow::ControlWindow(ui::Control& control, const Class& native, const std::string& text)
    : control_(control), form_(*FormPeer::of(control.form())) {
    const DWORD style = WS_CHILD | WS_CLIPSIBLINGS | WS_GROUP | (control.tabStop() ? WS_TABSTOP : 0) |
                        (control.showing() ? WS_VISIBLE : 0) | native.style;
    // Created visible and with its final bounds: moving and showing it later would take as long as creating it.
    const RECT b = ControlWindow::bounds();
    window_ = CreateWindowExA(native.extended, native.name, text.c_str(), style, b.left, b.top, b.right - b.left,
                              b.bottom - b.top, form_.window(), reinterpret_cast<HMENU>(form_.newIdentifier()),
                              GetModuleHandleA(nullptr), nullptr);
    if (!window_) throwLastError();
    form_.addControl(*this);
    SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    nativeProcedure_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ControlWindow::procedure)));
    SendMessageA(window_, WM_SETFONT, reinterpret_cast<WPARAM>(screen().font()), FALSE);
}

ControlWindow::~ControlWindow() {
    form_.removeControl(*this);
    SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(nativeProcedure_));
    DestroyWindow(window_);
}

ControlWindow* ControlWindow::of(const ui::Control& control) {
    return dynamic_cast<ControlWindow*>(control.peerAs<ui::Peer>());
}

LRESULT CALLBACK ControlWindow::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    auto& self = *reinterpret_cast<ControlWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (message == ResumePainting) {
        self.resumePainting();
        return 0;
    }
    // A control without a frame has nothing to paint here, but the native procedure takes long to find that out.
    if (message == WM_NCPAINT && !self.framed()) return 0;
    // A peer that throws has handled the message as far as it can be: the native control must not handle it again.
    std::optional<LRESULT> answer;
    if (!shielded([&] { answer = self.message(message, w, l); })) return 0;
    if (answer) return *answer;
    if (message == WM_CONTEXTMENU) self.form_.inMenu(window);  // text boxes have one of their own
    const LRESULT result = self.native(message, w, l);
    if (message == WM_CONTEXTMENU) self.form_.inMenu(nullptr);
    if (message == WM_SETFOCUS) {
        self.form_.markDefaultButton();
        if (self.reporting()) shielded([&] { self.control_.gotFocus(); });
    }
    return result;
}

// Asked each time: a progress bar gives itself an edge, and lists get scroll bars.
bool ControlWindow::framed() const {
    constexpr DWORD Edges = WS_EX_CLIENTEDGE | WS_EX_STATICEDGE | WS_EX_WINDOWEDGE | WS_EX_DLGMODALFRAME;
    return (GetWindowLongPtrA(window_, GWL_STYLE) & (WS_BORDER | WS_DLGFRAME | WS_HSCROLL | WS_VSCROLL)) ||
           (GetWindowLongPtrA(window_, GWL_EXSTYLE) & Edges);
}

LRESULT ControlWindow::apply(UINT message, WPARAM w, LPARAM l) {
    const Applying applying(*this);
    return send(window_, message, w, l);
}

RECT ControlWindow::bounds() const {
    return screen().pixels(control_.absoluteBounds());
}

bool ControlWindow::updateBounds() {
    const Applying applying(*this);
    const RECT b = bounds();
    RECT now = {};
    GetWindowRect(window_, &now);
    MapWindowPoints(nullptr, form_.window(), reinterpret_cast<POINT*>(&now), 2);
    if (EqualRect(&now, &b)) return false;
    SetWindowPos(window_, nullptr, b.left, b.top, b.right - b.left, b.bottom - b.top, SWP_NOZORDER | SWP_NOACTIVATE);
    rethrowParked();
    return true;
}

void ControlWindow::updateShowing() {
    const bool showing = control_.showing();
    if (!showing) passFocusOn();
    // A control whose painting is postponed has lost WS_VISIBLE: the style can only tell that nothing is to be done.
    if (showing && (GetWindowLongPtrA(window_, GWL_STYLE) & WS_VISIBLE)) return;
    ShowWindow(window_, showing ? SW_SHOWNA : SW_HIDE);
    rethrowParked();
}

void ControlWindow::updateEnabled() {
    if (!control_.enabled()) passFocusOn();
    EnableWindow(window_, control_.enabled());
    rethrowParked();
}

// A window keeps the keyboard focus when it is hidden or disabled, and the keyboard would be dead.
void ControlWindow::passFocusOn() {
    if (GetFocus() != window_) return;
    const HWND next = GetNextDlgTabItem(form_.window(), window_, FALSE);
    if (next && next != window_) SetFocus(next);
}

// A form that is not active gives its active control the focus when it is activated.
void ControlWindow::updateFocus() {
    if (GetActiveWindow() == form_.window() && form_.live()) SetFocus(window_);
    rethrowParked();
}

void ControlWindow::postponePainting() {
    if (paintingPostponed_) return;
    paintingPostponed_ = true;
    SendMessageA(window_, WM_SETREDRAW, FALSE, 0);
    PostMessageA(window_, ResumePainting, 0, 0);
}

void ControlWindow::resumePainting() {
    if (!paintingPostponed_) return;
    paintingPostponed_ = false;
    const Applying applying(*this);
    SendMessageA(window_, WM_SETREDRAW, TRUE, 0);
    paintingResumed();
    InvalidateRect(window_, nullptr, TRUE);
}

}  // namespace win32
