#include "ui/Label.h"

#include "win32/PeerFactory.h"
#include "win32/WindowlessPeer.h"

namespace win32 {

namespace {

class LabelPeer : public WindowlessPeer<ui::Label> {
public:
    using WindowlessPeer::WindowlessPeer;

private:
    void drawIn(HDC form, RECT area) override {
        const Selected font(form, form_.screen().font(control_.bold()));
        SetBkMode(form, TRANSPARENT);
        SetTextColor(form, GetSysColor(control_.enabled() ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
        const UINT lines = control_.oneLine() ? DT_SINGLELINE | DT_END_ELLIPSIS : DT_WORDBREAK;
        DrawTextA(form, control_.caption().c_str(), static_cast<int>(control_.caption().size()), &area,
                  DT_LEFT | lines | DT_EXPANDTABS | DT_NOPREFIX);
    }
};

}  // namespace

std::unique_ptr<ui::Peer> PeerFactory::make(ui::Label& label) {
    return std::make_unique<LabelPeer>(label);
}

}  // namespace win32
