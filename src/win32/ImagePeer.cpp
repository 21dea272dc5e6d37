#include "win32/ImagePeer.h"

#include "win32/PeerFactory.h"

namespace win32 {

void ImagePeer::applyPicture() {
    form_.redraw(drawn_);
    drawn_ = {};
    update();
}

void ImagePeer::update() {
    RECT now = {};
    if (image_.showing()) now = image_.sunken() ? place() : drawing_.extent(place(), image_.picture(), form_.screen());
    if (EqualRect(&now, &drawn_)) return;
    form_.redraw(drawn_);
    form_.redraw(now);
    drawn_ = now;
}

void ImagePeer::draw(HDC form) {
    if (!RectVisible(form, &drawn_)) return;
    RECT edge = drawn_;
    if (image_.sunken()) DrawEdge(form, &edge, EDGE_SUNKEN, BF_RECT);
    drawing_.draw(form, place(), image_.picture(), form_.screen());
}

std::unique_ptr<ui::Peer> PeerFactory::make(ui::Image& image) {
    return std::make_unique<ImagePeer>(image);
}

}  // namespace win32
