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

// A running message loop. Forms that were shown while it was running are taken down by it: when it has the control,
// no handler of theirs can be running any more.
class Desktop::Loop {
public:
    explicit Loop(Desktop& desktop) : desktop_(desktop) { ++desktop_.loops_; }
    Loop(const Loop&) = delete;
    Loop& operator=(const Loop&) = delete;
    ~Loop() { --desktop_.loops_; }

    // Waits for a message and handles it.
    void step() {
        MSG message;
        if (GetMessageA(&message, nullptr, 0, 0) <= 0) throw ui::EndProgram();
        desktop_.dispatch(message);
        takeDown();
    }
    void takeDown() {
        const auto peers = desktop_.peers_;
        for (FormPeer* peer : peers)
            if (peer->unloaded() && peer->loops >= desktop_.loops_) peer->form().detach();
    }

private:
    Desktop& desktop_;
};

// While one lives, no other form takes input.
class Desktop::OnlyForm {
public:
    OnlyForm(Desktop& desktop, const FormPeer& form) {
        for (const FormPeer* peer : desktop.peers_) {
            if (peer == &form || !IsWindowEnabled(peer->window())) continue;
            EnableWindow(peer->window(), FALSE);
            disabled_.push_back(peer->window());
        }
    }
    OnlyForm(const OnlyForm&) = delete;
    OnlyForm& operator=(const OnlyForm&) = delete;
    ~OnlyForm() { release(); }

    void release() {
        for (HWND window : disabled_) EnableWindow(window, TRUE);
        disabled_.clear();
    }

private:
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
    peer->loops = loops_;
    return *peer;
}

void Desktop::open(ui::Form& form) {
    attach(form, nullptr).show();
    form.setShown(true);
}

void Desktop::runModal(ui::Form& form, ui::Form* owner) {
    auto* ownerPeer = owner ? owner->peerAs<FormPeer>() : nullptr;
    Loop loop(*this);
    FormPeer& peer = attach(form, ownerPeer ? ownerPeer : activePeer());
    OnlyForm only(*this, peer);
    peer.whenUnloaded([&] { only.release(); });
    try {
        peer.show();
        form.setShown(true);
        while (form.loaded()) loop.step();
    } catch (...) {
        peer.whenUnloaded(nullptr);
        peer.silence();
        throw;
    }
    loop.takeDown();
}

void Desktop::closed(ui::Form& form) {
    form.setShown(false);
}

void Desktop::run() {
    Loop loop(*this);
    try {
        while (loop.takeDown(), anyOpen()) loop.step();
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
std::unique_ptr<ui::PictureBox::Peer> Desktop::make(ui::PictureBox& box) {
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
