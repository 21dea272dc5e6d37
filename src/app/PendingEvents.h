// Handles what has been waiting (input, painting, timers) in the middle of something long, so that the windows stay
// alive.
//
// Asked for after every small step. To look for messages takes the system as long as reading a registry value does, so
// it looks at most a hundred times a second.
#pragma once

#include <optional>

#include "platform/Platform.h"
#include "ui/Desktop.h"

class PendingEvents {
public:
    explicit PendingEvents(platform::Platform& platform) : platform_(platform) {}

    // The first call always handles.
    void handleWhenDue() {
        const std::uint32_t now = platform_.system.GetTickCount();
        if (last_ && now - *last_ < Interval) return;
        last_ = now;
        platform_.desktop.doEvents();
    }

private:
    static constexpr std::uint32_t Interval = 10;  // milliseconds

    platform::Platform& platform_;
    std::optional<std::uint32_t> last_;
};
