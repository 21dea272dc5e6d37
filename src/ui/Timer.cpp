#include "ui/Timer.h"

#include "ui/PeerFactory.h"

namespace ui {

Timer::Timer(Form& form, const char* name, int interval) : Component(form, name, -1), interval_(interval) {}

void Timer::setEnabled(bool enabled) {
    if (store(enabled_, enabled)) updatePeer(&Peer::applyTimer);
}

void Timer::tick() {
    if (enabled_) raise(onTimer);
}

std::unique_ptr<ui::Peer> Timer::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void Timer::replay() {
    peerAs<Peer>()->applyTimer();
}

}  // namespace ui
