#include "ui/CheckBox.h"

#include "win32/CaptionPeer.h"
#include "win32/PeerFactory.h"

namespace win32 {

namespace {

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

}  // namespace

std::unique_ptr<ui::Peer> PeerFactory::make(ui::CheckBox& box) {
    return std::make_unique<CheckBoxPeer>(box);
}

}  // namespace win32
