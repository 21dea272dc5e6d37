#include "ui/CommandButton.h"

#include "ui/PeerFactory.h"

namespace ui {

CommandButton::CommandButton(Parent parent, const char* name, Bounds bounds, std::string_view caption, int index)
    : Control(parent, name, bounds, index), caption_(caption) {
    setTabStop(true);
}

void CommandButton::click() {
    if (usable()) raise(onClick);
}

std::unique_ptr<ui::Peer> CommandButton::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

}  // namespace ui
