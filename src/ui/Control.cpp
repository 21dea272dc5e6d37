#include "ui/Control.h"

#include "ui/Form.h"

namespace ui {

Parent::Parent(Control& parent) : form(parent.form()), container(&parent) {}

Control::Control(Parent parent, const char* name, Bounds bounds, int index)
    : Component(parent.form, name, index), container_(parent.container), bounds_(bounds) {}

bool Control::isWithin(const Control& other) const {
    return this == &other || (container_ && container_->isWithin(other));
}

// Containers move, show and hide what is inside them.
template <class... Verbs>
void Control::updatePeersWithin(Verbs... verbs) {
    for (Control* control : form().controls())
        if (control->isWithin(*this)) (control->updatePeer(verbs), ...);
}

Bounds Control::absoluteBounds() const {
    if (!container_) return bounds_;
    const Bounds outer = container_->absoluteBounds();
    return {outer.left + bounds_.left, outer.top + bounds_.top, bounds_.width, bounds_.height};
}

void Control::setBounds(const Bounds& bounds) {
    if (store(bounds_, bounds)) updatePeersWithin(&Peer::applyBounds, &Peer::applyShowing);
}

void Control::stretch(Twips by) {
    const Twips bottom = bounds_.bottom();
    setHeight(height() + by);
    for (Control* other : form().controls())
        if (!other->container_ && other->top() >= bottom) other->setTop(other->top() + by);
}

bool Control::showing() const {
    return visible_ && bounds_.right() > 0 && (!container_ || container_->showing());
}

void Control::setVisible(bool visible) {
    if (store(visible_, visible)) updatePeersWithin(&Peer::applyShowing);
}

bool Control::usable() const {
    return enabled_ && showing() && !form().busy();
}

void Control::setEnabled(bool enabled) {
    if (store(enabled_, enabled)) updatePeer(&Peer::applyEnabled);
}

void Control::setToolTip(std::string text) {
    if (store(toolTip_, std::move(text))) updatePeer(&Peer::applyToolTip);
}

void Control::setFocus() {
    if (!acceptsFocus()) return;
    const bool moved = form().activeControl_ != this;
    form().activeControl_ = this;
    updatePeer(&Peer::applyFocus);
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
    auto* peer = peerAs<Peer>();
    peer->applyBounds();
    peer->applyText();
    peer->applyEnabled();
    peer->applyToolTip();
    peer->applyShowing();
}

}  // namespace ui
