#include "win32/FormPeer.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

#include "ui/CommandButton.h"
#include "ui/Desktop.h"
#include "ui/copiedText.h"
#include "win32/Callbacks.h"
#include "win32/ControlWindow.h"
#include "win32/ImagePeer.h"
#include "win32/MenuPeer.h"
#include "win32/PeerFactory.h"
#include "win32/SystemError.h"
#include "win32/TimerPeer.h"

namespace win32 {

namespace {

static_assert(ui::WmNotify == WM_NOTIFY && ui::LvnBeginDrag == static_cast<int>(LVN_BEGINDRAG));

// A dialog template without controls, text or font. The system wants it to stand at a multiple of 4.
struct EmptyDialog {
    alignas(4) DLGTEMPLATE head = {};
    WORD menu = 0, windowClass = 0, title = 0;
};

// The oldest form of the structure, which every version of the control knows.
constexpr UINT ToolInfoSize = offsetof(TOOLINFOA, lpszText) + sizeof(TOOLINFOA::lpszText);

FormPeer* peerOf(HWND window) {
    return reinterpret_cast<FormPeer*>(GetWindowLongPtrA(window, DWLP_USER));
}

// Ctrl+C, where the control has no text of its own to copy.
bool asksForCopy(const MSG& message) {
    return message.message == WM_KEYDOWN && message.wParam == 'C' && GetKeyState(VK_CONTROL) < 0 &&
           !(SendMessageA(message.hwnd, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL);
}

void copy(HWND window, const std::string& text) {
    if (text.empty() || !OpenClipboard(window)) return;
    EmptyClipboard();
    if (const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE, text.size() + 1)) {
        std::memcpy(GlobalLock(memory), text.c_str(), text.size() + 1);
        GlobalUnlock(memory);
        if (!SetClipboardData(CF_TEXT, memory)) GlobalFree(memory);
    }
    CloseClipboard();
}

}  // namespace

FormPeer::FormPeer(ui::Form& form, const Screen& screen, HWND owner, std::vector<FormPeer*>& all)
    : form_(form), screen_(screen), owner_(owner), all_(all) {
    const WindowStyles styles = stylesOf(form.kind());
    EmptyDialog dialog;
    dialog.head.style = styles.style;
    dialog.head.dwExtendedStyle = styles.extended;
    window_ = CreateDialogIndirectParamA(GetModuleHandleA(nullptr), &dialog.head, owner_, &FormPeer::dialogProcedure,
                                         reinterpret_cast<LPARAM>(this));
    // A modal form without a window could never be closed.
    if (!window_) throwLastError();
    if (form.kind() == ui::Form::Kind::Main) setIcons();
    all_.push_back(this);
}

FormPeer::~FormPeer() {
    live_ = false;
    std::erase(all_, this);
    if (hookedProcedure_) SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(hookedProcedure_));
    SetWindowLongPtrA(window_, DWLP_USER, 0);
    if (toolTips_) DestroyWindow(toolTips_);
    DestroyWindow(window_);
}

void FormPeer::setIcons() {
    // Not LR_SHARED, which gives the size that was loaded first, whatever is asked for.
    const auto set = [&](Icon& icon, WPARAM which, int width, int height) {
        icon = Icon(static_cast<HICON>(LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(1), IMAGE_ICON,
                                                  GetSystemMetrics(width), GetSystemMetrics(height), 0)));
        SendMessageA(window_, WM_SETICON, which, reinterpret_cast<LPARAM>(icon.get()));
    };
    // The small one first: a window that has only a large one gets a small one made from it, for nothing.
    set(smallIcon_, ICON_SMALL, SM_CXSMICON, SM_CYSMICON);
    set(largeIcon_, ICON_BIG, SM_CXICON, SM_CYICON);
}

// State -----------------------------------------------------------------------------------------------------------

void FormPeer::applyCaption() {
    send(window_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(form_.caption().c_str()));
}

void FormPeer::applySize() {
    const bool wasLive = std::exchange(live_, false);
    SIZE client = {screen_.pixels(form_.client().width), screen_.pixels(form_.client().height)};
    const bool zoomed = IsZoomed(window_);
    if (zoomed) {
        // The width is the whole screen's: the form hears of the one it had before.
        ShowWindow(window_, SW_SHOWNORMAL);
        RECT restored = {};
        GetClientRect(window_, &restored);
        client.cx = restored.right;
    }
    const SIZE size = windowAround(client, form_.kind(), !form_.menu().empty());
    SetWindowPos(window_, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    live_ = wasLive;
    if (zoomed) resized(client);
    placed();
    rethrowParked();
}

void FormPeer::applyHook() {
    const auto replaceProcedure = [&](WNDPROC procedure) {
        return reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
    };
    if (form_.hooked() && !hookedProcedure_) {
        hookedProcedure_ = replaceProcedure(&FormPeer::hookProcedure);
    } else if (!form_.hooked() && hookedProcedure_) {
        replaceProcedure(std::exchange(hookedProcedure_, nullptr));
    }
}

void FormPeer::applyPointer() {
    if (live_) SetCursor(LoadCursorA(nullptr, form_.pointer() == ui::Pointer::Hourglass ? IDC_WAIT : IDC_ARROW));
}

// Disabling takes the focus away from the form's controls.
void FormPeer::applyBusy() {
    if ((IsWindowEnabled(window_) == FALSE) == form_.busy()) return;
    EnableWindow(window_, !form_.busy());
    if (!form_.busy() && GetActiveWindow() == window_) focusActiveControl();
}

void FormPeer::applyDefaultButton() {
    const auto* button = form_.defaultButton();
    if (!button) return;
    if (const auto* control = ControlWindow::of(*button))
        SendMessageA(window_, DM_SETDEFID, static_cast<WPARAM>(GetDlgCtrlID(control->window())), 0);
    markDefaultButton();
}

// The dialog manager does this for Tab and access keys alone, and not for the mouse or the program.
void FormPeer::markDefaultButton() {
    const auto is = [](HWND window, UINT kind) { return (SendMessageA(window, WM_GETDLGCODE, 0, 0) & kind) != 0; };
    HWND marked = GetFocus();
    if (!find(marked) || !is(marked, DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) {
        const auto* control = form_.defaultButton() ? ControlWindow::of(*form_.defaultButton()) : nullptr;
        marked = control ? control->window() : nullptr;
    }
    for (const ControlWindow* control : controls_) {
        const HWND window = control->window();
        if (is(window, window == marked ? DLGC_UNDEFPUSHBUTTON : DLGC_DEFPUSHBUTTON))
            SendMessageA(window, BM_SETSTYLE, window == marked ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
    }
}

void FormPeer::applyLines() {
    for (const ui::Line& line : form_.lines()) redraw(placeOf(line));
}

// An open menu has a message loop of the system's, which would go on for a window that is no longer there.
bool FormPeer::endMenu() {
    if (menuOf_) SendMessageA(menuOf_, WM_CANCELMODE, 0, 0);
    return menuOf_ != nullptr;
}

void FormPeer::applyUnloaded() {
    endMenu();
    live_ = false;
    unloaded_ = true;
    if (whenUnloaded_) std::exchange(whenUnloaded_, nullptr)();
    ShowWindow(window_, SW_HIDE);
}

void FormPeer::show() {
    unloaded_ = false;
    if (const ui::Bounds& place = form_.place(); place.width && !IsWindowVisible(window_)) {
        SetWindowPos(window_, nullptr, screen_.pixels(place.left), screen_.pixels(place.top), 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        keepOnScreen(window_);
    } else if (!IsWindowVisible(window_)) {
        centre(window_, owner_);
    }
    for (ControlWindow* control : controls_) control->resumePainting();
    live_ = true;
    ShowWindow(window_, SW_SHOW);
    placed();
    UpdateWindow(window_);
    rethrowParked();
}

bool FormPeer::dialogMessage(MSG& message) {
    if (message.hwnd != window_ && !IsChild(window_, message.hwnd)) return false;
    // Relayed here instead of letting the tool tip subclass the controls: old versions restore the wrong procedures.
    if (toolTips_ && message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST)
        SendMessageA(toolTips_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
    if (asksForCopy(message)) copy(window_, ui::copiedText(form_));
    if (message.message == WM_KEYDOWN && live_ && key(message.wParam)) return true;
    return IsDialogMessageA(window_, &message) != FALSE;
}

bool FormPeer::key(WPARAM key) {
    const bool control = GetKeyState(VK_CONTROL) < 0, shift = GetKeyState(VK_SHIFT) < 0;
    if (key == VK_F5 && !control) return form_.pressKey(ui::FormKey::Refresh);
    if (!control || (key != VK_TAB && key != VK_NEXT && key != VK_PRIOR)) return false;
    return form_.pressKey(key == VK_PRIOR || (key == VK_TAB && shift) ? ui::FormKey::PreviousPage
                                                                      : ui::FormKey::NextPage);
}

void FormPeer::removeControl(ControlWindow& control) {
    std::erase(controls_, &control);
}

ControlWindow* FormPeer::find(HWND window) const {
    const auto at = std::find_if(controls_.begin(), controls_.end(), [&](auto* c) { return c->window() == window; });
    return at == controls_.end() ? nullptr : *at;
}

void FormPeer::setToolTip(HWND control, const std::string& text) {
    if (!toolTips_) {
        if (text.empty()) return;
        toolTips_ = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, "", WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0, 0, window_,
                                    nullptr, GetModuleHandleA(nullptr), nullptr);
    }
    TOOLINFOA tool = {};
    tool.cbSize = ToolInfoSize;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = window_;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = const_cast<char*>(text.c_str());
    SendMessageA(toolTips_, TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
    if (!text.empty()) SendMessageA(toolTips_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

// Messages --------------------------------------------------------------------------------------------------------

LRESULT CALLBACK FormPeer::hookProcedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    FormPeer& self = *peerOf(window);
    const WNDPROC next = self.hookedProcedure_;  // read now: the hook may take itself away
    std::optional<std::intptr_t> answer;
    const bool returned = shielded([&] {
        const UINT code = message == WM_NOTIFY ? reinterpret_cast<const NMHDR*>(l)->code : 0;
        answer = self.form_.hookAnswer({message, w, static_cast<std::uintptr_t>(l), static_cast<int>(code)});
    });
    if (!returned) return 0;
    return answer ? *answer : CallWindowProcA(next, window, message, w, l);
}

INT_PTR CALLBACK FormPeer::dialogProcedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(window, DWLP_USER, l);
        reinterpret_cast<FormPeer*>(l)->window_ = window;
        return FALSE;
    }
    FormPeer* self = peerOf(window);
    if (!self) return FALSE;
    // A message whose handler throws counts as handled: closing, for one, would be tried a second time.
    bool handled = false;
    const bool returned = shielded([&] { handled = self->handle(message, w, l); });
    return handled || !returned;
}

bool FormPeer::handle(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_COMMAND:
            return command(LOWORD(w), HIWORD(w), reinterpret_cast<HWND>(l));
        case WM_NOTIFY:
            return notify(*reinterpret_cast<const NMHDR*>(l));
        case WM_TIMER:
            return live_ && TimerPeer::tick(form_, w);
        case WM_CLOSE:
            if (endMenu()) {
                PostMessageA(window_, WM_CLOSE, 0, 0);
            } else if (live_ && (form_.kind() == ui::Form::Kind::Main || IsWindowEnabled(window_))) {
                form_.closeBox();
            }
            return true;
        case WM_ENTERMENULOOP:
        case WM_EXITMENULOOP:
            inMenu(message == WM_ENTERMENULOOP ? window_ : nullptr);
            return false;
        case WM_QUERYENDSESSION:
            return form_.desktop().busy() && answer(FALSE);
        case WM_SIZE:
            placed();
            return w != SIZE_MINIMIZED && resized({LOWORD(l), HIWORD(l)});
        case WM_MOVE:
            return placed();
        case WM_GETMINMAXINFO:
            return limitSize(*reinterpret_cast<MINMAXINFO*>(l));
        case WM_ACTIVATE:
            return LOWORD(w) == WA_INACTIVE || HIWORD(w) || focusActiveControl();
        case WM_SETFOCUS:
            return focusActiveControl();
        case WM_SETCURSOR:
            return showPointer();
        // The system tells it to the windows of the desktop alone.
        case WM_SYSCOLORCHANGE:
            for (const ControlWindow* control : controls_) SendMessageA(control->window(), message, w, l);
            return false;
        // On a screen of 256 colours each picture sets its own when it is painted.
        case WM_PALETTECHANGED:
            if (reinterpret_cast<HWND>(w) == window_ || IsChild(window_, reinterpret_cast<HWND>(w))) return true;
            [[fallthrough]];
        case WM_QUERYNEWPALETTE:
            RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
            return true;
        case WM_PAINT:
            return paint();
        // Newer versions of the system's controls ask for their background.
        case WM_PRINTCLIENT:
            draw(reinterpret_cast<HDC>(w));
            return true;
        default:
            return false;
    }
}

bool FormPeer::answer(LRESULT result) {
    SetWindowLongPtrA(window_, DWLP_MSGRESULT, static_cast<LONG_PTR>(result));
    return true;
}

bool FormPeer::command(int id, int code, HWND control) {
    if (!live_) return false;
    if (control) {
        if (ControlWindow* sender = find(control); sender && sender->reporting()) sender->command(code);
    } else if (id == IDCANCEL) {
        form_.pressEscape();
    } else {
        MenuPeer::choose(form_, id);
    }
    return true;
}

bool FormPeer::notify(const NMHDR& header) {
    ControlWindow* sender = find(header.hwndFrom);
    return sender && sender->reporting() && answer(sender->notify(header));
}

bool FormPeer::resized(SIZE client) {
    if (!live_ || form_.kind() != ui::Form::Kind::Main) return false;
    // A pixel is several twips: a length that is the same in pixels keeps its exact value in twips.
    const ui::Size now = form_.client();
    form_.userResized({client.cx == screen_.pixels(now.width) ? now.width : screen_.twips(client.cx),
                       client.cy == screen_.pixels(now.height) ? now.height : screen_.twips(client.cy)});
    return true;
}

bool FormPeer::limitSize(MINMAXINFO& limits) const {
    if (form_.kind() != ui::Form::Kind::Main) return false;
    const ui::Size least = form_.smallest();
    const SIZE size =
        windowAround({screen_.pixels(least.width), screen_.pixels(least.height)}, form_.kind(), !form_.menu().empty());
    limits.ptMinTrackSize = {size.cx, size.cy};
    return true;
}

bool FormPeer::placed() {
    if (!live_ || IsIconic(window_)) return false;
    RECT at = {};
    GetWindowRect(window_, &at);
    form_.userPlaced({screen_.twips(at.left), screen_.twips(at.top), screen_.twips(at.right - at.left),
                      screen_.twips(at.bottom - at.top)},
                     IsZoomed(window_) != FALSE);
    return false;
}

bool FormPeer::showPointer() {
    if (form_.pointer() != ui::Pointer::Hourglass) return false;
    SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    return answer(TRUE);
}

// The form knows its active control, which need not be the one that the dialog manager remembers.
bool FormPeer::focusActiveControl() {
    if (!live_) return false;
    const ui::Control* active = form_.activeControl();
    if (active && !active->acceptsFocus()) active = nullptr;
    const auto* control = active ? ControlWindow::of(*active) : nullptr;
    const HWND target = control ? control->window() : GetNextDlgTabItem(window_, nullptr, FALSE);
    if (!target) return false;
    SetFocus(target);
    return true;
}

void FormPeer::redraw(const RECT& area) {
    InvalidateRect(window_, &area, TRUE);
}

bool FormPeer::paint() {
    PAINTSTRUCT area;
    draw(BeginPaint(window_, &area));
    EndPaint(window_, &area);
    return true;
}

// As thick as one pixel at 96 DPI.
RECT FormPeer::placeOf(const ui::Line& line) const {
    const int thickness = std::max(1, screen_.scaled(1));
    const int left = screen_.pixels(std::min(line.left, line.right)), top = screen_.pixels(line.top);
    return {left, top, std::max(left + thickness, screen_.pixels(std::max(line.left, line.right))),
            std::max(top + thickness, screen_.pixels(line.bottom))};
}

void FormPeer::draw(HDC context) const {
    for (const ui::Line& line : form_.lines()) {
        const RECT bar = placeOf(line);
        FillRect(context, &bar,
                 GetSysColorBrush(line.colour == ui::SystemColour::Shadow3D ? COLOR_3DSHADOW : COLOR_3DHIGHLIGHT));
    }
    for (const ui::Component* component : form_.components())
        if (auto* image = dynamic_cast<ImagePeer*>(component->peerAs<ui::Peer>())) image->draw(context);
}

std::unique_ptr<ui::Peer> PeerFactory::make(ui::Form& form, const ui::Form* owner) {
    const FormPeer* above = owner ? FormPeer::of(*owner) : nullptr;
    return std::make_unique<FormPeer>(form, screen_, above ? above->window() : nullptr, forms_);
}

}  // namespace win32
