#include "ui/Image.h"

#include "win32/Graphics.h"
#include "win32/PeerFactory.h"
#include "win32/WindowlessPeer.h"

namespace win32 {

namespace {

class ImagePeer : public WindowlessPeer<ui::Image> {
public:
    using WindowlessPeer::WindowlessPeer;
    void applyPicture() override { redraw(); }

private:
    void drawIn(HDC form, RECT area) override { drawing_.draw(form, area, control_.picture(), form_.screen()); }

    PictureDrawing drawing_;
};

}  // namespace

std::unique_ptr<ui::Peer> PeerFactory::make(ui::Image& image) {
    return std::make_unique<ImagePeer>(image);
}

}  // namespace win32
