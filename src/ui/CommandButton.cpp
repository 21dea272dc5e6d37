#include "ui/CommandButton.h"

#include "ui/PeerFactory.h"

namespace ui {

CommandButton::CommandButton(Parent parent, std::string name, Bounds bounds, std::string caption, int index)
    : Control(parent, std::move(name), bounds, index), caption_(std::move(caption)) {
    setTabStop(true);
}

void CommandButton::click() {
    if (usable()) raise(onClick);
}

std::unique_ptr<ui::Peer> CommandButton::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

}  // namespace ui
