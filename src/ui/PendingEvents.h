// Handles what has been waiting (input, painting, timers) in the middle of something long, so that the windows stay
// alive.
//
// Asked for after every small step. To look for messages takes the system as long as reading a registry value does, and
// to draw how far it has come longer still, so it is done only so often.
#pragma once

#include <cstdint>

#include "platform/Platform.h"
#include "ui/Desktop.h"

namespace ui {

class PendingEvents {
public:
    // `interval`: milliseconds.
    explicit PendingEvents(platform::Platform& platform, std::uint32_t interval = 10)
        : platform_(platform), interval_(interval) {}

    // Whether some are to be handled again; the first time always.
    bool due() {
        const std::uint32_t now = platform_.system.GetTickCount();
        if (begun_ && now - last_ < interval_) return false;
        begun_ = true;
        last_ = now;
        return true;
    }
    void handle() { platform_.desktop.doEvents(); }
    void handleWhenDue() {
        if (due()) handle();
    }

private:
    platform::Platform& platform_;
    std::uint32_t interval_;
    bool begun_ = false;
    std::uint32_t last_ = 0;
};

}  // namespace ui
