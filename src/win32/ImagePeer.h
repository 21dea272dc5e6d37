// The peer of a picture, which has no window: its form draws it.
#pragma once

#include "ui/Image.h"
#include "win32/FormPeer.h"
#include "win32/Graphics.h"

namespace win32 {

class ImagePeer : public ui::Image::Peer {
public:
    explicit ImagePeer(ui::Image& image) : image_(image), form_(*FormPeer::of(image.form())) {}

    void applyBounds() override { update(); }
    void applyShowing() override { update(); }
    void applyPicture() override;
    void applyEnabled() override {}
    void applyText() override {}
    void applyFocus() override {}
    void applyToolTip() override {}

    void draw(HDC form);

private:
    // Has the form paint where the picture was and where it is now, when these differ.
    void update();
    RECT place() const { return form_.screen().pixels(image_.absoluteBounds()); }

    ui::Image& image_;
    FormPeer& form_;
    PictureDrawing drawing_;
    RECT drawn_ = {};  // where anything of it can be seen; empty when nothing can
};

}  // namespace win32
