// An image with a window of its own: it can have a border, be clicked, and contain other controls as a page.
#pragma once

#include <string>

#include "ui/Image.h"

namespace ui {

class PictureBox : public Image {
public:
    enum class Border { None, Sunken };
    PictureBox(Parent parent, std::string name, Bounds bounds, Border border = Border::None, int index = -1);
    Border border() const { return border_; }

    void click();  // the user's entry; Enter and Space when the box is a tab stop
    Event onClick;

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;

private:
    Border border_;
};

}  // namespace ui
