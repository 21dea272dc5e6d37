#include "ui/Component.h"

#include "ui/Form.h"

namespace ui {

Component::Component(Form& form, std::string name, int index) : form_(form), name_(std::move(name)), index_(index) {
    form_.add(*this);
}

Component::~Component() {
    form_.remove(*this);
}

void Component::attach(PeerFactory& factory) {
    setPeer(makePeer(factory));
    replay();
}

}  // namespace ui
