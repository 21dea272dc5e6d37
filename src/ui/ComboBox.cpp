#include "ui/ComboBox.h"

#include "ui/PeerFactory.h"

namespace ui {

ComboBox::ComboBox(Parent parent, const char* name, Bounds bounds, int index) : Control(parent, name, bounds, index) {
    setTabStop(true);
}

void ComboBox::setItems(std::vector<std::string> items) {
    items_ = std::move(items);
    listIndex_ = -1;
    updatePeer(&Peer::applyItems);
}

void ComboBox::setListIndex(int listIndex) {
    if (listIndex < -1 || listIndex >= static_cast<int>(items_.size())) return;
    if (store(listIndex_, listIndex)) updatePeer(&Peer::applyListIndex);
}

std::string ComboBox::text() const {
    return listIndex_ < 0 ? std::string() : items_[static_cast<std::size_t>(listIndex_)];
}

void ComboBox::choose(int listIndex) {
    if (!usable()) return;
    setListIndex(listIndex);
    raise(onClick);
}

std::unique_ptr<ui::Peer> ComboBox::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void ComboBox::replay() {
    Control::replay();
    peerAs<Peer>()->applyItems();
    peerAs<Peer>()->applyListIndex();
}

}  // namespace ui
