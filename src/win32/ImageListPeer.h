// The native image list that list views show pictures from.
#pragma once

#include "ui/ImageList.h"
#include "win32/Handles.h"

namespace win32 {

class ImageListPeer : public ui::ImageList::Peer {
public:
    explicit ImageListPeer(ui::ImageList& list);
    // The native image list of a component; null for none, and before it has one.
    static HIMAGELIST imagesOf(const ui::ImageList* list);

    void applyAdded() override;
    void applyCleared() override;

private:
    void updateUsers();

    ui::ImageList& list_;
    Images images_;
};

}  // namespace win32
