// The peer of a control whose native window shows its caption.
#pragma once

#include <string>

#include "win32/ControlPeer.h"

namespace win32 {

template <class C>
class CaptionPeer : public ControlPeer<C> {
public:
    CaptionPeer(C& control, const ControlWindow::Class& native)
        : ControlPeer<C>(control, native, control.caption()), shown_(control.caption()) {}
    void applyText() override {
        if (ui::store(shown_, this->control_.caption())) this->apply(WM_SETTEXT, 0, shown_.c_str());
    }

private:
    std::string shown_;  // by the native window: setting the same text again would paint it again
};

}  // namespace win32
