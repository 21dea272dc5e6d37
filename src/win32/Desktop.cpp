#include "win32/Desktop.h"

#include <algorithm>
#include <cstring>

#include "win32/Callbacks.h"
#include "win32/ControlWindow.h"
#include "win32/DelayLoaded.h"
#include "win32/FormPeer.h"
#include "win32/OpenFile.h"
#include "win32/Screen.h"

namespace win32 {

namespace {

static_assert(static_cast<int>(ui::MessageStyle::Exclamation) == (MB_OK | MB_ICONEXCLAMATION));
static_assert(static_cast<int>(ui::MessageStyle::ExclamationYesNo) == (MB_YESNO | MB_ICONEXCLAMATION));
static_assert(static_cast<int>(ui::Answer::Ok) == IDOK && static_cast<int>(ui::Answer::Yes) == IDYES &&
              static_cast<int>(ui::Answer::No) == IDNO);

// Progress bars, lists, trees and tabs. The first call registers the controls of the first version of the library only;
// the second, which registers any, is missing in that version.
void registerControls() {
    InitCommonControls();
    using Init = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);
    const auto init = exported<Init>(GetModuleHandleA("comctl32.dll"), "InitCommonControlsEx");
    if (!init) return;
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_WIN95_CLASSES};
    init(&classes);
}

bool canBeActive(HWND window) {
    return IsWindowVisible(window) && IsWindowEnabled(window);
}

void activate(HWND window) {
    if (GetActiveWindow() != window && canBeActive(window)) SetActiveWindow(window);
}

BOOL CALLBACK endUnlessForm(HWND window, LPARAM peers) {
    const auto& forms = *reinterpret_cast<const std::vector<FormPeer*>*>(peers);
    char name[8] = "";
    GetClassNameA(window, name, sizeof name);
    if (std::strcmp(name, "#32770") != 0 || !IsWindowVisible(window)) return TRUE;
    if (std::none_of(forms.begin(), forms.end(), [&](auto* form) { return form->window() == window; }))
        EndDialog(window, 0);
    return TRUE;
}

// A message box or file dialog runs a loop of the system's, which knows nothing of what a handler throws meanwhile, nor
// of the last form's end: it would go on until the user closes the dialog.
void endSystemDialogs(const std::vector<FormPeer*>& forms) {
    EnumThreadWindows(GetCurrentThreadId(), endUnlessForm, reinterpret_cast<LPARAM>(&forms));
}

}  // namespace

// Waits for a message and handles it. After that no handler can be running of a form that was shown by this loop or one
// inside it, so the windows of those forms that have been unloaded are destroyed.
void Desktop::step() {
    MSG message;
    if (GetMessageA(&message, nullptr, 0, 0) <= 0) throw ui::EndProgram();
    dispatch(message);
    destroyUnloaded();
}

void Desktop::destroyUnloaded() {
    const auto peers = peers_;
    for (FormPeer* peer : peers)
        if (peer->unloaded() && peer->modalLoops >= modalLoops_) peer->form().detach();
}

// A modal loop is running for a form: no other form takes input.
class Desktop::Modal {
public:
    Modal(Desktop& desktop, FormPeer& form) : desktop_(desktop) {
        form.modalLoops = ++desktop_.modalLoops_;
        for (const FormPeer* peer : desktop_.peers_) {
            if (peer == &form || !IsWindowEnabled(peer->window())) continue;
            EnableWindow(peer->window(), FALSE);
            disabled_.push_back(peer->window());
        }
    }
    Modal(const Modal&) = delete;
    Modal& operator=(const Modal&) = delete;
    ~Modal() {
        enableOthers();
        --desktop_.modalLoops_;
    }

    void enableOthers() {
        for (HWND window : disabled_) EnableWindow(window, TRUE);
        disabled_.clear();
    }

private:
    Desktop& desktop_;
    std::vector<HWND> disabled_;
};

Desktop::Desktop() : Desktop(Screen().pixelsPerInch()) {}

Desktop::Desktop(int pixelsPerInch) : screen_(std::make_unique<Screen>(pixelsPerInch)), factory_(*screen_, peers_) {
    registerControls();
}

Desktop::~Desktop() = default;

// Forms -----------------------------------------------------------------------------------------------------------

FormPeer& Desktop::attach(ui::Form& form, const ui::Form* owner) {
    if (!form.attached()) form.attach(factory_, owner);
    FormPeer& peer = *FormPeer::of(form);
    peer.modalLoops = modalLoops_;
    return peer;
}

void Desktop::open(ui::Form& form) {
    attach(form, nullptr).show();
    form.setShown(true);
}

void Desktop::runModal(ui::Form& form, ui::Form* owner) {
    const HWND before = GetActiveWindow();
    FormPeer& peer = attach(form, owner && owner->attached() ? owner : activeForm());
    Modal modal(*this, peer);
    // Another window must be active before this one goes, or the system would choose one, perhaps of another program.
    peer.whenUnloaded([&] {
        modal.enableOthers();
        if (GetActiveWindow() == peer.window()) activate(canBeActive(before) ? before : activeWindow());
    });
    try {
        peer.show();
        form.setShown(true);
        while (form.loaded()) step();
    } catch (...) {
        peer.whenUnloaded(nullptr);
        peer.ignoreEvents();
        endSystemDialogs(peers_);
        throw;
    }
    destroyUnloaded();
}

void Desktop::closed(ui::Form& form) {
    form.setShown(false);
    if (!anyOpen()) endSystemDialogs(peers_);
}

void Desktop::run() {
    try {
        destroyUnloaded();
        while (anyOpen()) step();
    } catch (...) {
        for (FormPeer* peer : peers_) peer->ignoreEvents();
        throw;
    }
}

void Desktop::doEvents() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) throw ui::EndProgram();
        dispatch(message);
    }
}

void Desktop::dispatch(MSG& message) {
    const bool handled = std::any_of(peers_.begin(), peers_.end(), [&](auto* p) { return p->dialogMessage(message); });
    if (!handled) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    rethrowParked();
}

bool Desktop::anyOpen() const {
    return std::any_of(peers_.begin(), peers_.end(), [](const FormPeer* peer) { return !peer->unloaded(); });
}

ui::Form* Desktop::activeForm() const {
    const HWND active = GetActiveWindow();
    ui::Form* last = nullptr;
    for (const FormPeer* peer : peers_) {
        if (peer->unloaded()) continue;
        if (peer->window() == active) return &peer->form();
        last = &peer->form();
    }
    return last;
}

HWND Desktop::activeWindow() const {
    const ui::Form* form = activeForm();
    return form ? FormPeer::of(*form)->window() : nullptr;
}

// Questions -------------------------------------------------------------------------------------------------------

ui::Answer Desktop::messageBox(const std::string& text, const std::string& title, ui::MessageStyle style) {
    const HWND before = GetActiveWindow(), owner = activeWindow();
    const UINT scope = owner ? MB_APPLMODAL : MB_TASKMODAL;
    const int answer = MessageBoxA(owner, text.c_str(), title.c_str(), static_cast<UINT>(style) | scope);
    rethrowParked();
    activate(before);
    return static_cast<ui::Answer>(answer);
}

void Desktop::beep() {
    MessageBeep(MB_ICONEXCLAMATION);
}

std::optional<std::string> Desktop::openFile(const ui::OpenFileRequest& request) {
    const HWND before = GetActiveWindow();
    auto path = win32::openFile(request, activeWindow());
    activate(before);
    return path;
}

// Measures --------------------------------------------------------------------------------------------------------

int Desktop::pixelsPerInch() const {
    return screen_->pixelsPerInch();
}

ui::Size Desktop::workArea() {
    RECT work = {};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    return {screen_->twips(work.right - work.left), screen_->twips(work.bottom - work.top)};
}

ui::FrameSize Desktop::frameSize(ui::Form::Kind kind, bool menu) {
    const SIZE frame = windowAround({0, 0}, kind, menu);
    return {screen_->twips(frame.cx), screen_->twips(frame.cy)};
}

ui::Size Desktop::textSize(const std::string& text, ui::Twips wrap, bool bold) {
    const ScreenContext context;
    const Selected font(context, screen_->font(bold));
    RECT space = {0, 0, screen_->pixels(wrap), 0};
    DrawTextA(context, text.c_str(), static_cast<int>(text.size()), &space,
              DT_CALCRECT | DT_NOPREFIX | (wrap ? DT_WORDBREAK : 0));
    return {screen_->twips(space.right), screen_->twips(space.bottom)};
}

std::uintptr_t Desktop::nativeHandle(const ui::Form& form) {
    const FormPeer* peer = FormPeer::of(form);
    return peer ? reinterpret_cast<std::uintptr_t>(peer->window()) : 0;
}

std::uintptr_t Desktop::nativeHandle(const ui::Control& control) {
    const auto* peer = ControlWindow::of(control);
    return peer ? reinterpret_cast<std::uintptr_t>(peer->window()) : 0;
}

}  // namespace win32
