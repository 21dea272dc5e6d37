#include "ui/ComboBox.h"

#include <algorithm>

#include "win32/ControlPeer.h"
#include "win32/PeerFactory.h"

namespace win32 {

namespace {

class ComboBoxPeer : public ControlPeer<ui::ComboBox> {
public:
    explicit ComboBoxPeer(ui::ComboBox& box) : ControlPeer(box, {"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL}) {}

    void applyItems() override {
        apply(CB_RESETCONTENT);
        for (const std::string& item : control_.items()) apply(CB_ADDSTRING, 0, item.c_str());
        applyListIndex();
    }
    void applyListIndex() override { apply(CB_SETCURSEL, static_cast<WPARAM>(control_.listIndex())); }

    void command(int code) override {
        if (code != CBN_SELCHANGE && code != CBN_CLOSEUP) return;
        const int index = static_cast<int>(SendMessageA(window(), CB_GETCURSEL, 0, 0));
        // A list that is closed by Esc takes its selection back, and says only that it closes.
        if (code == CBN_SELCHANGE || index != control_.listIndex()) control_.choose(index);
    }

private:
    // The native height includes the list that drops down.
    RECT bounds() const override {
        RECT all = ControlPeer::bounds();
        constexpr LRESULT most = 8;
        const LRESULT count = std::clamp<LRESULT>(static_cast<LRESULT>(control_.items().size()), 1, most);
        all.bottom += static_cast<LONG>((count + 1) * SendMessageA(window(), CB_GETITEMHEIGHT, 0, 0));
        return all;
    }
};

}  // namespace

std::unique_ptr<ui::Peer> PeerFactory::make(ui::ComboBox& box) {
    return std::make_unique<ComboBoxPeer>(box);
}

}  // namespace win32
