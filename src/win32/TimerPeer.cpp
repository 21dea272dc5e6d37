#include "win32/TimerPeer.h"

#include "win32/FormPeer.h"
#include "win32/PeerFactory.h"

namespace win32 {

TimerPeer::TimerPeer(ui::Timer& timer)
    : timer_(timer), window_(FormPeer::of(timer.form())->window()), id_(FormPeer::of(timer.form())->newIdentifier()) {}

TimerPeer::~TimerPeer() {
    KillTimer(window_, id_);
}

void TimerPeer::applyTimer() {
    if (timer_.enabled()) {
        SetTimer(window_, id_, static_cast<UINT>(timer_.interval()), nullptr);
    } else {
        KillTimer(window_, id_);
    }
}

// A message can still be waiting when its timer has been stopped or destroyed, so the timer is looked up.
bool TimerPeer::tick(const ui::Form& form, UINT_PTR id) {
    for (ui::Component* component : form.components()) {
        auto* timer = dynamic_cast<ui::Timer*>(component);
        if (!timer || !timer->attached() || timer->peerAs<TimerPeer>()->id_ != id) continue;
        timer->tick();
        return true;
    }
    return false;
}

std::unique_ptr<ui::Peer> PeerFactory::make(ui::Timer& timer) {
    return std::make_unique<TimerPeer>(timer);
}

}  // namespace win32
