#include "ui/ListView.h"

#include <algorithm>
#include <stdexcept>

#include "ui/Desktop.h"

namespace ui {

// ImageList -----------------------------------------------------------------------------------------------------

ImageList::ImageList(Form& form, std::string name, int size) : Component(form, std::move(name), -1), size_(size) {}

int ImageList::find(const std::string& key) const {
    const auto at = std::find(keys_.begin(), keys_.end(), key);
    return key.empty() || at == keys_.end() ? 0 : static_cast<int>(at - keys_.begin()) + 1;
}

int ImageList::add(Picture picture, std::string key) {
    pictures_.push_back(std::move(picture));
    keys_.push_back(std::move(key));
    if (auto* p = peerAs<Peer>()) p->applyAdded();
    return count();
}

void ImageList::clear() {
    pictures_.clear();
    keys_.clear();
    if (auto* p = peerAs<Peer>()) p->applyCleared();
}

std::unique_ptr<ui::Peer> ImageList::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

// The peer starts empty: it is shown the pictures one by one, as if they were added now.
void ImageList::replay() {
    std::vector<Picture> all;
    all.swap(pictures_);
    for (Picture& picture : all) {
        pictures_.push_back(std::move(picture));
        peerAs<Peer>()->applyAdded();
    }
}

// ListView ------------------------------------------------------------------------------------------------------

ListView::ListView(Place place, std::string name, Bounds bounds, View view, Clicks clicks, int index)
    : Control(place, std::move(name), bounds, index), view_(view), clicks_(clicks) {
    setTabStop(true);
}

void ListView::setImages(ImageList* large, ImageList* small) {
    large_ = large;
    small_ = small;
    if (auto* p = peerAs<Peer>()) p->applyImages();
}

void ListView::setColumn(std::string heading, Twips width) {
    columnHeading_ = std::move(heading);
    columnWidth_ = width;
    if (auto* p = peerAs<Peer>()) p->applyColumn();
}

int ListView::add(ListItem item) {
    items_.push_back(std::move(item));
    if (auto* p = peerAs<Peer>()) p->applyItem(count());
    return count();
}

void ListView::setTag(int number, std::string tag) {
    items_.at(static_cast<std::size_t>(number - 1)).tag = std::move(tag);
}

void ListView::clear() {
    items_.clear();
    selected_ = 0;
    if (auto* p = peerAs<Peer>()) p->applyCleared();
}

void ListView::setSelected(int number) {
    if (number < 0 || number > count()) throw std::out_of_range("the list has no such item");
    if (store(selected_, number))
        if (auto* p = peerAs<Peer>()) p->applySelected();
}

void ListView::setIconSpacing(Spacing spacing) {
    spacing_ = spacing;  // told each time: the native list forgets it when its images change
    if (auto* p = peerAs<Peer>()) p->applySpacing();
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
