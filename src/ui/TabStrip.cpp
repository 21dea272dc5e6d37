#include "ui/TabStrip.h"

#include "ui/PeerFactory.h"

namespace ui {

TabStrip::TabStrip(Parent parent, const char* name, Bounds bounds, std::vector<std::string> tabs, int index)
    : Control(parent, name, bounds, index), tabs_(std::move(tabs)) {
    setTabStop(true);
}

void TabStrip::setSelected(int tab) {
    if (tab < 1 || tab > static_cast<int>(tabs_.size())) return;
    if (store(selected_, tab)) updatePeer(&Peer::applySelected);
}

void TabStrip::choose(int tab) {
    if (!usable()) return;
    setSelected(tab);
    raise(onClick);
}

std::unique_ptr<ui::Peer> TabStrip::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void TabStrip::replay() {
    Control::replay();
    peerAs<Peer>()->applyTabs();
    peerAs<Peer>()->applySelected();
}

}  // namespace ui
