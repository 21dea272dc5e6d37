// Label and Image.
#include "win32/Drawn.h"
#include "win32/FormPeer.h"
#include "win32/Graphics.h"
#include "win32/Peers.h"

namespace win32 {

namespace {

// Neither the mouse nor the focus finds what has no window.
template <class C>
class DrawnPeer : public C::Peer, public Drawn {
public:
    explicit DrawnPeer(C& control)
        : control_(control), form_(*control.form().template peerAs<FormPeer>()), place_(control.absoluteBounds()) {}

    void applyBounds() override {
        redraw();
        place_ = control_.absoluteBounds();
        redraw();
    }
    void applyShowing() override { redraw(); }
    void applyEnabled() override { redraw(); }
    void applyText() override { redraw(); }
    void applyFocus() override {}
    void applyToolTip() override {}

    void draw(HDC form) override {
        const RECT place = form_.screen().pixels(place_);
        if (control_.showing() && RectVisible(form, &place)) drawAt(form, place);
    }

protected:
    virtual void drawAt(HDC form, RECT place) = 0;
    void redraw() { form_.redraw(place_); }

    C& control_;
    FormPeer& form_;

private:
    ui::Bounds place_;  // where it is drawn
};

class LabelPeer : public DrawnPeer<ui::Label> {
public:
    using DrawnPeer::DrawnPeer;

private:
    void drawAt(HDC form, RECT place) override {
        const Selected font(form, form_.screen().font(control_.bold()));
        SetBkMode(form, TRANSPARENT);
        SetTextColor(form, GetSysColor(control_.enabled() ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
        DrawTextA(form, control_.caption().c_str(), static_cast<int>(control_.caption().size()), &place,
                  DT_LEFT | DT_WORDBREAK | DT_EXPANDTABS | DT_NOPREFIX);
    }
};

class ImagePeer : public DrawnPeer<ui::Image> {
public:
    using DrawnPeer::DrawnPeer;
    void applyPicture() override { redraw(); }

private:
    void drawAt(HDC form, RECT place) override { drawing_.draw(form, place, control_.picture(), form_.screen()); }

    PictureDrawing drawing_;
};

}  // namespace

std::unique_ptr<ui::Control::Peer> makePeer(ui::Label& label) {
    return std::make_unique<LabelPeer>(label);
}
std::unique_ptr<ui::Image::Peer> makePeer(ui::Image& image) {
    return std::make_unique<ImagePeer>(image);
}

}  // namespace win32
