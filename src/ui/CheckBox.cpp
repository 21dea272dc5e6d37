#include "ui/CheckBox.h"

#include "ui/PeerFactory.h"

namespace ui {

CheckBox::CheckBox(Parent parent, std::string name, Bounds bounds, std::string caption, int index)
    : Control(parent, std::move(name), bounds, index), caption_(std::move(caption)) {
    setTabStop(true);
}

void CheckBox::setChecked(bool checked) {
    if (store(checked_, checked)) updatePeer(&Peer::applyChecked);
}

void CheckBox::click() {
    if (!usable()) return;
    setChecked(!checked_);
    raise(onClick);
}

std::unique_ptr<ui::Peer> CheckBox::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void CheckBox::replay() {
    Control::replay();
    peerAs<Peer>()->applyChecked();
}

}  // namespace ui
