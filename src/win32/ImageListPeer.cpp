#include "win32/ImageListPeer.h"

#include "ui/Form.h"
#include "ui/ListView.h"
#include "ui/TreeView.h"
#include "win32/Graphics.h"
#include "win32/PeerFactory.h"

namespace win32 {

ImageListPeer::ImageListPeer(ui::ImageList& list, const Screen& screen)
    : list_(list), size_(screen.scaled(list.size())), images_(makeImages(size_)) {}

HIMAGELIST ImageListPeer::imagesOf(const ui::ImageList* list) {
    return list && list->attached() ? list->peerAs<ImageListPeer>()->images_.get() : nullptr;
}

void ImageListPeer::applyAdded() {
    addPicture(images_.get(), size_, list_.picture(list_.count()));
    updateUsers();
}

void ImageListPeer::applyCleared() {
    ImageList_Remove(images_.get(), -1);
    updateUsers();
}

// A list view can be older than the pictures it shows, and a tree keeps a copy of them.
void ImageListPeer::updateUsers() {
    for (ui::Component* component : list_.form().components()) {
        if (!component->attached()) continue;
        if (auto* list = dynamic_cast<ui::ListView*>(component)) {
            if (list->largeImages() == &list_ || list->smallImages() == &list_)
                list->peerAs<ui::ListView::Peer>()->applyImages();
        } else if (auto* tree = dynamic_cast<ui::TreeView*>(component)) {
            if (tree->images() == &list_) tree->peerAs<ui::TreeView::Peer>()->applyImages();
        }
    }
}

std::unique_ptr<ui::Peer> PeerFactory::make(ui::ImageList& list) {
    return std::make_unique<ImageListPeer>(list, screen_);
}

}  // namespace win32
