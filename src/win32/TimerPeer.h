// A timer of the system, which sends the form's window a message at each interval.
#pragma once

#include "ui/Timer.h"
#include "win32/WindowsHeaders.h"

namespace win32 {

class TimerPeer : public ui::Timer::Peer {
public:
    explicit TimerPeer(ui::Timer& timer);
    TimerPeer(const TimerPeer&) = delete;
    TimerPeer& operator=(const TimerPeer&) = delete;
    ~TimerPeer() override;

    void applyTimer() override;
    // Ticks the form's timer that this identifier belongs to.
    static bool tick(const ui::Form& form, UINT_PTR id);

private:
    ui::Timer& timer_;
    HWND window_;
    UINT_PTR id_;
};

}  // namespace win32
