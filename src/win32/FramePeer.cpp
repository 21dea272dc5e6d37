#include "ui/Frame.h"

#include <algorithm>
#include <utility>

#include "win32/CaptionPeer.h"
#include "win32/PeerFactory.h"

namespace win32 {

namespace {

// Transparent: it stands above the controls in it, and covers none of them.
class FramePeer : public CaptionPeer<ui::Frame> {
public:
    explicit FramePeer(ui::Frame& frame)
        : CaptionPeer(frame, {"BUTTON", BS_GROUPBOX, WS_EX_TRANSPARENT}), shown_(bounds()) {}

    // The native frame never erases its old lines: the form does, and where only the right edge moves just there.
    void applyBounds() override {
        if (!updateBounds()) return;
        RECT before = std::exchange(shown_, bounds()), now = shown_;
        if (before.left == now.left && before.top == now.top && before.bottom == now.bottom)
            before.left = now.left = std::min(before.right, now.right) - screen().scaled(LineWidth);
        form().redraw(before);
        form().redraw(now);
        InvalidateRect(window(), nullptr, FALSE);
    }

private:
    static constexpr int LineWidth = 4;  // pixels at 96 DPI, with room to spare
    RECT shown_;
};

}  // namespace

std::unique_ptr<ui::Peer> PeerFactory::make(ui::Frame& frame) {
    return std::make_unique<FramePeer>(frame);
}

}  // namespace win32
