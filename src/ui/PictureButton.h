// A picture that can be pressed. Its caption is not shown: it is what those are told who cannot see the picture.
#pragma once

#include <string>
#include <string_view>

#include "ui/Image.h"

namespace ui {

class PictureButton : public Image {
public:
    PictureButton(Parent parent, const char* name, Bounds bounds, std::string_view caption, int index = -1);
    const std::string& caption() const { return caption_; }

    void click();  // the user's entry
    Event onClick;

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;

private:
    std::string caption_;
};

}  // namespace ui
