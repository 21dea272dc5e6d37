#include "win32/TimerPeer.h"

#include "win32/FormPeer.h"

namespace win32 {

TimerPeer::TimerPeer(ui::Timer& timer) : timer_(timer), window_(timer.form().peerAs<FormPeer>()->window()) {}

TimerPeer::~TimerPeer() {
    KillTimer(window_, id());
}

void TimerPeer::applyTimer() {
    if (timer_.enabled()) {
        SetTimer(window_, id(), static_cast<UINT>(timer_.interval()), nullptr);
    } else {
        KillTimer(window_, id());
    }
}

// A message can still be waiting when its timer has been stopped or has gone: the timer is looked for, not trusted.
bool TimerPeer::tick(const ui::Form& form, UINT_PTR id) {
    for (ui::Component* component : form.components()) {
        auto* timer = dynamic_cast<ui::Timer*>(component);
        if (!timer || !timer->attached() || timer->peerAs<TimerPeer>()->id() != id) continue;
        timer->tick();
        return true;
    }
    return false;
}

}  // namespace win32
