#include "ui/Frame.h"

#include "ui/PeerFactory.h"

namespace ui {

Frame::Frame(Parent parent, std::string name, Bounds bounds, std::string caption, int index)
    : Control(parent, std::move(name), bounds, index), caption_(std::move(caption)) {}

void Frame::setCaption(std::string caption) {
    if (store(caption_, std::move(caption))) updatePeer(&Peer::applyText);
}

std::unique_ptr<ui::Peer> Frame::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

}  // namespace ui
