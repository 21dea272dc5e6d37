#include "ui/ImageList.h"

#include <algorithm>

#include "ui/PeerFactory.h"

namespace ui {

ImageList::ImageList(Form& form, const char* name, int size) : Component(form, name, -1), size_(size) {}

int ImageList::find(const std::string& key) const {
    const auto at = std::find(keys_.begin(), keys_.end(), key);
    return key.empty() || at == keys_.end() ? 0 : static_cast<int>(at - keys_.begin()) + 1;
}

int ImageList::add(Picture picture, std::string key) {
    pictures_.push_back(std::move(picture));
    keys_.push_back(std::move(key));
    updatePeer(&Peer::applyAdded);
    return count();
}

void ImageList::clear() {
    pictures_.clear();
    keys_.clear();
    updatePeer(&Peer::applyCleared);
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

}  // namespace ui
