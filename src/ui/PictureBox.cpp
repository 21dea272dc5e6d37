#include "ui/PictureBox.h"

#include "ui/PeerFactory.h"

namespace ui {

PictureBox::PictureBox(Parent parent, std::string name, Bounds bounds, Border border, int index)
    : Image(parent, std::move(name), bounds, index), border_(border) {}

void PictureBox::click() {
    if (usable()) raise(onClick);
}

std::unique_ptr<ui::Peer> PictureBox::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

}  // namespace ui
