#include "ui/ProgressBar.h"

#include "win32/ControlPeer.h"
#include "win32/PeerFactory.h"

namespace win32 {

namespace {

class ProgressBarPeer : public ControlPeer<ui::ProgressBar> {
public:
    explicit ProgressBarPeer(ui::ProgressBar& bar) : ControlPeer(bar, {PROGRESS_CLASSA}) {
        apply(PBM_SETRANGE, 0, MAKELPARAM(0, Whole));
    }

    // Painted at once: a program that shows progress is too busy to handle messages.
    void applyProgress() override {
        apply(PBM_SETPOS, static_cast<WPARAM>(MulDiv(control_.value(), Whole, control_.maximum())));
        UpdateWindow(window());
    }

private:
    static constexpr int Whole = 1000;  // the limits of the old message have 16 bits
};

}  // namespace

std::unique_ptr<ui::Peer> PeerFactory::make(ui::ProgressBar& bar) {
    return std::make_unique<ProgressBarPeer>(bar);
}

}  // namespace win32
