#include "ui/CheckBox.h"

#include "ui/PeerFactory.h"

namespace ui {

CheckBox::CheckBox(Parent parent, const char* name, Bounds bounds, std::string_view caption, int index)
    : Control(parent, name, bounds, index), caption_(caption) {
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
