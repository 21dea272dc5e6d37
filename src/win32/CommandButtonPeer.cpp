#include "ui/CommandButton.h"

#include "win32/CaptionPeer.h"
#include "win32/PeerFactory.h"

namespace win32 {

namespace {

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

}  // namespace

std::unique_ptr<ui::Peer> PeerFactory::make(ui::CommandButton& button) {
    return std::make_unique<CommandButtonPeer>(button);
}

}  // namespace win32
