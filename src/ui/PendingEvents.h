// Handles pending events (input, painting, timers) during a long operation, so that the windows keep responding.
//
// The operation asks after every small step. Looking for messages takes the system as long as reading a registry value,
// and drawing the progress takes longer still, so both are done once in an interval only.
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

    // Whether the interval has passed; always true the first time.
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
