// Frame, CommandButton, CheckBox, ProgressBar: what has little more than a caption.
#include <algorithm>

#include "win32/ControlWindow.h"
#include "win32/Peers.h"

namespace win32 {

namespace {

class FramePeer : public CaptionPeer<ui::Frame> {
public:
    explicit FramePeer(ui::Frame& frame) : CaptionPeer(frame, {"BUTTON", BS_GROUPBOX, WS_EX_TRANSPARENT}) {}
};

class CommandButtonPeer : public CaptionPeer<ui::CommandButton> {
public:
    explicit CommandButtonPeer(ui::CommandButton& button)
        : CaptionPeer(button,
                      {"BUTTON", button.form().defaultButton() == &button ? static_cast<DWORD>(BS_DEFPUSHBUTTON)
                                                                          : static_cast<DWORD>(BS_PUSHBUTTON)}) {}

    void command(int code) override {
        if (code == BN_CLICKED) control_.click();
    }

private:
    // Enter presses the button with the focus, however the focus came there.
    std::optional<LRESULT> message(UINT message, WPARAM, LPARAM) override {
        if (message != WM_GETDLGCODE || GetFocus() != window()) return std::nullopt;
        return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
    }
};

class CheckBoxPeer : public CaptionPeer<ui::CheckBox> {
public:
    explicit CheckBoxPeer(ui::CheckBox& box) : CaptionPeer(box, {"BUTTON", BS_AUTOCHECKBOX | BS_MULTILINE}) {}

    void applyChecked() override { apply(BM_SETCHECK, control_.checked() ? BST_CHECKED : BST_UNCHECKED); }

    // The native box has toggled itself by now.
    void command(int code) override {
        if (code != BN_CLICKED) return;
        const bool checked = SendMessageA(window(), BM_GETCHECK, 0, 0) == BST_CHECKED;
        if (checked != control_.checked()) control_.click();
    }
};

class ProgressBarPeer : public ControlPeer<ui::ProgressBar> {
public:
    explicit ProgressBarPeer(ui::ProgressBar& bar) : ControlPeer(bar, {PROGRESS_CLASSA}) {
        apply(PBM_SETRANGE, 0, MAKELPARAM(0, Whole));
    }

    // Painted at once: who shows progress is busy.
    void applyProgress() override {
        apply(PBM_SETPOS, static_cast<WPARAM>(MulDiv(control_.value(), Whole, control_.maximum())));
        UpdateWindow(window());
    }

private:
    static constexpr int Whole = 1000;  // the old message takes 16 bits
};

}  // namespace

std::unique_ptr<ui::Control::Peer> makePeer(ui::Frame& frame) {
    return std::make_unique<FramePeer>(frame);
}
std::unique_ptr<ui::Control::Peer> makePeer(ui::CommandButton& button) {
    return std::make_unique<CommandButtonPeer>(button);
}
std::unique_ptr<ui::CheckBox::Peer> makePeer(ui::CheckBox& box) {
    return std::make_unique<CheckBoxPeer>(box);
}
std::unique_ptr<ui::ProgressBar::Peer> makePeer(ui::ProgressBar& bar) {
    return std::make_unique<ProgressBarPeer>(bar);
}

}  // namespace win32
