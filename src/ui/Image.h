// A picture. Like a label it is windowless and drawn on the form.
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
    Image(Parent parent, std::string name, Bounds bounds, int index = -1);

    const Picture& picture() const { return picture_; }
    void setPicture(Picture picture);  // drawn at (0, 0), 32 by 32 pixels for icons
    void clear() { setPicture({}); }

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    Picture picture_;
};

}  // namespace ui
