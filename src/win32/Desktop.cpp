#include "win32/Desktop.h"

#include <algorithm>

#include "win32/Callbacks.h"
#include "win32/ControlWindow.h"
#include "win32/MenuPeer.h"
#include "win32/OpenFile.h"
#include "win32/Peers.h"
#include "win32/TimerPeer.h"

namespace win32 {

namespace {

// Progress bars, lists, trees and tabs. The newer call is not in every version of the library, and where it is, it
// brings what the older one does not know.
void registerControls() {
    InitCommonControls();
    const HMODULE library = GetModuleHandleA("comctl32.dll");
    using Init = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);
    const auto init = reinterpret_cast<Init>(
        reinterpret_cast<void*>(library ? GetProcAddress(library, "InitCommonControlsEx") : nullptr));
    if (!init) return;
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_WIN95_CLASSES};
    init(&classes);
}

HWND windowOf(const FormPeer* peer) {
    return peer ? peer->window() : nullptr;
}

}  // namespace

// Waits for a message and handles it. Forms that were shown by this loop or within it are then taken down: no handler
// of theirs can be running any more.
void Desktop::step() {
    MSG message;
    if (GetMessageA(&message, nullptr, 0, 0) <= 0) throw ui::EndProgram();
    dispatch(message);
    takeDown();
}

void Desktop::takeDown() {
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

Desktop::Desktop() : screen_((registerControls(), std::make_unique<Screen>())) {}

Desktop::~Desktop() = default;

// Forms -----------------------------------------------------------------------------------------------------------

FormPeer& Desktop::attach(ui::Form& form, FormPeer* owner) {
    auto* peer = form.peerAs<FormPeer>();
    if (!peer) {
        nextOwner_ = owner;
        form.attach(*this);
        peer = form.peerAs<FormPeer>();
    }
    peer->modalLoops = modalLoops_;
    return *peer;
}

void Desktop::open(ui::Form& form) {
    attach(form, nullptr).show();
    form.setShown(true);
}

void Desktop::runModal(ui::Form& form, ui::Form* owner) {
    auto* ownerPeer = owner ? owner->peerAs<FormPeer>() : nullptr;
    FormPeer& peer = attach(form, ownerPeer ? ownerPeer : activePeer());
    Modal modal(*this, peer);
    peer.whenUnloaded([&] { modal.enableOthers(); });
    try {
        peer.show();
        form.setShown(true);
        while (form.loaded()) step();
    } catch (...) {
        peer.whenUnloaded(nullptr);
        peer.silence();
        throw;
    }
    takeDown();
}

void Desktop::closed(ui::Form& form) {
    form.setShown(false);
}

void Desktop::run() {
    try {
        while (takeDown(), anyOpen()) step();
    } catch (...) {
        for (FormPeer* peer : peers_) peer->silence();
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

FormPeer* Desktop::activePeer() const {
    const HWND active = GetActiveWindow();
    FormPeer* last = nullptr;
    for (FormPeer* peer : peers_) {
        if (peer->unloaded()) continue;
        if (peer->window() == active) return peer;
        last = peer;
    }
    return last;
}

// Questions -------------------------------------------------------------------------------------------------------

ui::Answer Desktop::messageBox(const std::string& text, const std::string& title, ui::MessageStyle style) {
    const HWND owner = windowOf(activePeer());
    const UINT scope = owner ? MB_APPLMODAL : MB_TASKMODAL;
    const int answer = MessageBoxA(owner, text.c_str(), title.c_str(), static_cast<UINT>(style) | scope);
    rethrowParked();
    return static_cast<ui::Answer>(answer);
}

std::optional<std::string> Desktop::openFile(const ui::OpenFileRequest& request) {
    return win32::openFile(request, windowOf(activePeer()));
}

// Measures --------------------------------------------------------------------------------------------------------

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
    return reinterpret_cast<std::uintptr_t>(windowOf(form.peerAs<FormPeer>()));
}

std::uintptr_t Desktop::nativeHandle(const ui::Control& control) {
    const auto* peer = dynamic_cast<const ControlWindow*>(control.peerAs<ui::Peer>());
    return peer ? reinterpret_cast<std::uintptr_t>(peer->window()) : 0;
}

// Peers -----------------------------------------------------------------------------------------------------------

std::unique_ptr<ui::Form::Peer> Desktop::make(ui::Form& form) {
    const HWND owner = windowOf(std::exchange(nextOwner_, nullptr));
    auto peer =
        std::make_unique<FormPeer>(form, *screen_, owner, [this](FormPeer& gone) { std::erase(peers_, &gone); });
    peers_.push_back(peer.get());
    return peer;
}

std::unique_ptr<ui::Timer::Peer> Desktop::make(ui::Timer& timer) {
    return std::make_unique<TimerPeer>(timer);
}

std::unique_ptr<ui::Menu::Peer> Desktop::make(ui::Menu& menu) {
    return std::make_unique<MenuPeer>(menu);
}

std::unique_ptr<ui::Control::Peer> Desktop::make(ui::Label& label) {
    return makePeer(label);
}
std::unique_ptr<ui::Control::Peer> Desktop::make(ui::Frame& frame) {
    return makePeer(frame);
}
std::unique_ptr<ui::TextBox::Peer> Desktop::make(ui::TextBox& box) {
    return makePeer(box);
}
std::unique_ptr<ui::CheckBox::Peer> Desktop::make(ui::CheckBox& box) {
    return makePeer(box);
}
std::unique_ptr<ui::Control::Peer> Desktop::make(ui::CommandButton& button) {
    return makePeer(button);
}
std::unique_ptr<ui::ComboBox::Peer> Desktop::make(ui::ComboBox& box) {
    return makePeer(box);
}
std::unique_ptr<ui::Image::Peer> Desktop::make(ui::Image& image) {
    return makePeer(image);
}
std::unique_ptr<ui::Image::Peer> Desktop::make(ui::PictureBox& box) {
    return makePeer(box);
}
std::unique_ptr<ui::ProgressBar::Peer> Desktop::make(ui::ProgressBar& bar) {
    return makePeer(bar);
}
std::unique_ptr<ui::TabStrip::Peer> Desktop::make(ui::TabStrip& strip) {
    return makePeer(strip);
}
std::unique_ptr<ui::ImageList::Peer> Desktop::make(ui::ImageList& list) {
    return makePeer(list);
}
std::unique_ptr<ui::ListView::Peer> Desktop::make(ui::ListView& list) {
    return makePeer(list);
}
std::unique_ptr<ui::TreeView::Peer> Desktop::make(ui::TreeView& tree) {
    return makePeer(tree);
}

}  // namespace win32
