// The peer of a control that has a native window: what every such control reflects in the same way.
#pragma once

#include <string>

#include "win32/ControlWindow.h"

namespace win32 {

template <class C>
class ControlPeer : public C::Peer, public ControlWindow {
public:
    ControlPeer(C& control, const Class& native, const std::string& text = {})
        : ControlWindow(control, native, text), control_(control) {}

    void applyBounds() override { updateBounds(); }
    void applyShowing() override { updateShowing(); }
    void applyEnabled() override { updateEnabled(); }
    void applyText() override {}
    void applyFocus() override { updateFocus(); }
    void applyToolTip() override { form().setToolTip(window(), control_.toolTip()); }

protected:
    C& control_;
};

}  // namespace win32
