#include "ui/Control.h"

#include "ui/Form.h"

namespace ui {

Component::Component(Form& form, std::string name, int index) : form_(form), name_(std::move(name)), index_(index) {
    form_.enter(*this);
}

Component::~Component() {
    form_.leave(*this);
}

void Component::attach(PeerFactory& factory) {
    peer_ = makePeer(factory);
    replay();
}

Place::Place(Control& inside) : form(inside.form()), container(&inside) {}

Control::Control(Place place, std::string name, Bounds bounds, int index)
    : Component(place.form, std::move(name), index), container_(place.container), bounds_(bounds) {}

Bounds Control::absoluteBounds() const {
    Bounds absolute = bounds_;
    for (const Control* c = container_; c; c = c->container_) {
        absolute.left += c->bounds_.left;
        absolute.top += c->bounds_.top;
    }
    return absolute;
}

void Control::setBounds(const Bounds& bounds) {
    if (!store(bounds_, bounds)) return;
    for (Component* component : form().components()) {
        auto* control = dynamic_cast<Control*>(component);
        for (const Control* c = control; c; c = c->container_) {
            if (c != this) continue;
            if (auto* p = control->peer()) {
                p->applyBounds();
                p->applyShowing();
            }
        }
    }
}

bool Control::showing() const {
    for (const Control* c = this; c; c = c->container_) {
        if (!c->visible_ || c->bounds_.right() <= 0) return false;
    }
    return true;
}

void Control::setVisible(bool visible) {
    if (store(visible_, visible)) tellShowing();
}

// Containers show and hide what is inside them.
void Control::tellShowing() {
    for (Component* component : form().components()) {
        auto* control = dynamic_cast<Control*>(component);
        for (const Control* c = control; c; c = c->container_) {
            if (c != this) continue;
            if (auto* p = control->peer()) p->applyShowing();
        }
    }
}

void Control::setEnabled(bool enabled) {
    if (store(enabled_, enabled) && peer()) peer()->applyEnabled();
}

void Control::setToolTip(std::string text) {
    if (store(toolTip_, std::move(text)) && peer()) peer()->applyToolTip();
}

void Control::setFocus() {
    if (!acceptsFocus()) return;
    const bool moved = form().activeControl_ != this;
    form().activeControl_ = this;
    if (peer()) peer()->applyFocus();
    if (moved) raise(onGotFocus);
}

bool Control::focused() const {
    return form().activeControl_ == this;
}

void Control::gotFocus() {
    if (form().activeControl_ == this) return;
    form().activeControl_ = this;
    raise(onGotFocus);
}

void Control::replay() {
    peer()->applyBounds();
    peer()->applyText();
    peer()->applyEnabled();
    peer()->applyToolTip();
    peer()->applyShowing();
}

}  // namespace ui
