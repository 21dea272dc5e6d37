// Ticks on the user-interface thread every `interval` milliseconds while enabled.
#pragma once

#include <string>

#include "ui/Component.h"

namespace ui {

class Timer : public Component {
public:
    class Peer : public ui::Peer {
    public:
        virtual void applyTimer() = 0;
    };
    Timer(Form& form, const char* name, int interval);
    int interval() const { return interval_; }
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);

    void tick();  // the clock's entry
    Event onTimer;

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    int interval_;
    bool enabled_ = false;
};

}  // namespace ui
