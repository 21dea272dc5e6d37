#include "ui/ListView.h"

#include <stdexcept>

#include "ui/PeerFactory.h"

namespace ui {

ListView::ListView(Parent parent, const char* name, Bounds bounds, View view, Clicks clicks, int index)
    : Control(parent, name, bounds, index), view_(view), clicks_(clicks) {
    setTabStop(true);
}

void ListView::setImages(ImageList* large, ImageList* small) {
    large_ = large;
    small_ = small;
    updatePeer(&Peer::applyImages);
}

void ListView::setColumn(std::string heading, Twips width) {
    columnHeading_ = std::move(heading);
    columnWidth_ = width;
    updatePeer(&Peer::applyColumn);
}

int ListView::add(ListItem item) {
    items_.push_back(std::move(item));
    updatePeer(&Peer::applyItem, count());
    return count();
}

void ListView::setTag(int number, std::string tag) {
    items_.at(static_cast<std::size_t>(number - 1)).tag = std::move(tag);
}

void ListView::clear() {
    items_.clear();
    selected_ = 0;
    updatePeer(&Peer::applyCleared);
}

void ListView::setSelected(int number) {
    if (number < 0 || number > count()) throw std::out_of_range("the list has no such item");
    if (store(selected_, number)) updatePeer(&Peer::applySelected);
}

void ListView::setIconSpacing(Spacing spacing) {
    spacing_ = spacing;  // applied even when equal: the native list forgets it when its images change
    updatePeer(&Peer::applySpacing);
}

void ListView::click(int number) {
    if (!usable() || number < 1 || number > count()) return;
    setSelected(number);
    raise(onItemClick, number);
}

void ListView::choose(int number) {
    if (!usable() || number < 1 || number > count()) return;
    setSelected(number);
    if (clicks_ == Clicks::OnSelect) raise(onItemClick, number);
}

void ListView::activate() {
    if (usable() && selected_ > 0 && clicks_ == Clicks::OnActivate) raise(onItemClick, selected_);
}

void ListView::open() {
    if (usable() && selected_ > 0) raise(onOpen);
}

std::unique_ptr<ui::Peer> ListView::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void ListView::replay() {
    Control::replay();
    auto* p = peerAs<Peer>();
    p->applyColumn();
    p->applyImages();
    for (int number = 1; number <= count(); ++number) p->applyItem(number);
    p->applySelected();
    if (spacing_) p->applySpacing();
}

}  // namespace ui
