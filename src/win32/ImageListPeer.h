// The native image list that list views show pictures from.
#pragma once

#include "ui/ImageList.h"
#include "win32/Screen.h"

namespace win32 {

class ImageListPeer : public ui::ImageList::Peer {
public:
    ImageListPeer(ui::ImageList& list, const Screen& screen);
    // The native image list of a component; null for none, and before it has one.
    static HIMAGELIST imagesOf(const ui::ImageList* list);

    void applyAdded() override;
    void applyCleared() override;

private:
    void updateUsers();

    ui::ImageList& list_;
    int size_;  // pixels
    Images images_;
};

}  // namespace win32
