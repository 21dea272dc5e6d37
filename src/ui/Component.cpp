#include "ui/Component.h"

#include "ui/Form.h"

namespace ui {

Component::Component(Form& form, const char* name, int index) : form_(form), name_(name), index_(index) {
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
