// A picture. It has no window, the form draws it: neither the mouse nor the focus finds it. Other controls may stand in
// it, as on a page.
#pragma once

#include <string>

#include "ui/Control.h"
#include "ui/Picture.h"

namespace ui {

class Image : public Control {
public:
    class Peer : public Control::Peer {
    public:
        virtual void applyPicture() = 0;
    };
    Image(Parent parent, const char* name, Bounds bounds, int index = -1);

    const Picture& picture() const { return picture_; }
    void setPicture(Picture picture);  // drawn at (0, 0), 32 by 32 pixels for icons
    void clear() { setPicture({}); }
    // With a sunken edge around it.
    bool sunken() const { return sunken_; }
    Image& makeSunken() {
        sunken_ = true;
        return *this;
    }

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    Picture picture_;
    bool sunken_ = false;
};

}  // namespace ui
