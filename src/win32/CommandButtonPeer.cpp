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
};

}  // namespace

std::unique_ptr<ui::Peer> PeerFactory::make(ui::CommandButton& button) {
    return std::make_unique<CommandButtonPeer>(button);
}

}  // namespace win32
