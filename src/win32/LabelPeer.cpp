#include "ui/Label.h"

#include "win32/CaptionPeer.h"
#include "win32/PeerFactory.h"

namespace win32 {

namespace {

// Windows 95 and 98 cut a line that is too long without dots.
DWORD styleOf(const ui::Label& label) {
    return static_cast<DWORD>(SS_NOPREFIX | (label.oneLine() ? SS_LEFTNOWORDWRAP | SS_ENDELLIPSIS : SS_LEFT));
}

class LabelPeer : public CaptionPeer<ui::Label> {
public:
    explicit LabelPeer(ui::Label& label) : CaptionPeer(label, {"STATIC", styleOf(label)}) {
        if (label.bold()) SendMessageA(window(), WM_SETFONT, reinterpret_cast<WPARAM>(screen().font(true)), FALSE);
    }

    // What is not new of a wider label would not be painted again, though its lines break elsewhere.
    void applyBounds() override {
        if (updateBounds()) InvalidateRect(window(), nullptr, TRUE);
    }
};

}  // namespace

std::unique_ptr<ui::Peer> PeerFactory::make(ui::Label& label) {
    return std::make_unique<LabelPeer>(label);
}

}  // namespace win32
