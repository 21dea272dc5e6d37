#include "ui/Image.h"

#include "ui/PeerFactory.h"

namespace ui {

Image::Image(Parent parent, const char* name, Bounds bounds, int index) : Control(parent, name, bounds, index) {}

void Image::setPicture(Picture picture) {
    if (store(picture_, std::move(picture))) updatePeer(&Peer::applyPicture);
}

std::unique_ptr<ui::Peer> Image::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void Image::replay() {
    Control::replay();
    peerAs<Peer>()->applyPicture();
}

}  // namespace ui
