#include "ui/Frame.h"

#include "win32/CaptionPeer.h"
#include "win32/PeerFactory.h"

namespace win32 {

namespace {

class FramePeer : public CaptionPeer<ui::Frame> {
public:
    explicit FramePeer(ui::Frame& frame) : CaptionPeer(frame, {"BUTTON", BS_GROUPBOX, WS_EX_TRANSPARENT}) {}
};

}  // namespace

std::unique_ptr<ui::Peer> PeerFactory::make(ui::Frame& frame) {
    return std::make_unique<FramePeer>(frame);
}

}  // namespace win32
