#include "ui/Menu.h"

#include "ui/PeerFactory.h"

namespace ui {

void MenuItem::setCaption(std::string_view caption) {
    if (store(caption_, caption)) menu_.changed();
}

void MenuItem::setEnabled(bool enabled) {
    if (store(enabled_, enabled)) menu_.changedEnabled(*this);
}

MenuItem& MenuItem::add(const char* name, std::string_view caption, int index) {
    MenuItem& item = items_.emplace_back(menu_, name, caption, index);
    menu_.changed();
    return item;
}

void MenuItem::click() {
    if (enabled_) raise(onClick);
}

MenuItem& Menu::add(const char* name, std::string_view caption) {
    MenuItem& item = items_.emplace_back(*this, name, caption, -1);
    changed();
    return item;
}

void Menu::changed() {
    updatePeer(&Peer::applyMenu);
}

void Menu::changedEnabled(const MenuItem& item) {
    updatePeer(&Peer::applyEnabled, item);
}

std::unique_ptr<ui::Peer> Menu::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void Menu::replay() {
    if (!items_.empty()) peerAs<Peer>()->applyMenu();
}

}  // namespace ui
