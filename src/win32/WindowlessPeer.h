// The peer of a windowless control, which its form draws.
//
// Most controls that a form shows are windowless: creating a window for each would take most of the time it takes to
// open the form, and old systems have little room for windows.
#pragma once

#include "ui/Control.h"
#include "win32/FormPeer.h"
#include "win32/Windowless.h"

namespace win32 {

// Neither the mouse nor the focus finds a windowless control.
template <class C>
class WindowlessPeer : public C::Peer, public Windowless {
public:
    explicit WindowlessPeer(C& control)
        : control_(control), form_(*FormPeer::of(control.form())), bounds_(control.absoluteBounds()) {}

    void applyBounds() override {
        redraw();
        bounds_ = control_.absoluteBounds();
        redraw();
    }
    void applyShowing() override { redraw(); }
    void applyEnabled() override { redraw(); }
    void applyText() override { redraw(); }
    void applyFocus() override {}
    void applyToolTip() override {}

    void draw(HDC form) override {
        const RECT area = form_.screen().pixels(bounds_);
        if (control_.showing() && RectVisible(form, &area)) drawIn(form, area);
    }

protected:
    virtual void drawIn(HDC form, RECT area) = 0;
    void redraw() { form_.redraw(bounds_); }

    C& control_;
    FormPeer& form_;

private:
    ui::Bounds bounds_;  // where it was last drawn
};

}  // namespace win32
