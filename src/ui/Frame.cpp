#include "ui/Frame.h"

#include "ui/PeerFactory.h"

namespace ui {

Frame::Frame(Parent parent, const char* name, Bounds bounds, std::string_view caption, int index)
    : Control(parent, name, bounds, index), caption_(caption) {}

void Frame::setCaption(std::string_view caption) {
    if (store(caption_, caption)) updatePeer(&Peer::applyText);
}

std::unique_ptr<ui::Peer> Frame::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

}  // namespace ui
