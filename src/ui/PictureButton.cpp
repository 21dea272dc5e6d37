#include "ui/PictureButton.h"

#include "ui/PeerFactory.h"

namespace ui {

PictureButton::PictureButton(Parent parent, const char* name, Bounds bounds, std::string_view caption, int index)
    : Image(parent, name, bounds, index), caption_(caption) {
    setTabStop(true);
}

void PictureButton::click() {
    if (usable()) raise(onClick);
}

std::unique_ptr<ui::Peer> PictureButton::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

}  // namespace ui
