#include "ui/ProgressBar.h"

#include <algorithm>

#include "ui/PeerFactory.h"

namespace ui {

ProgressBar::ProgressBar(Parent parent, const char* name, Bounds bounds, int index)
    : Control(parent, name, bounds, index) {}

void ProgressBar::setProgress(int value, int maximum) {
    maximum_ = std::max(1, maximum);
    value_ = std::clamp(value, 0, maximum_);
    updatePeer(&Peer::applyProgress);
}

std::unique_ptr<ui::Peer> ProgressBar::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void ProgressBar::replay() {
    Control::replay();
    peerAs<Peer>()->applyProgress();
}

}  // namespace ui
