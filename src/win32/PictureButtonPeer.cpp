#include "ui/PictureButton.h"

#include "win32/CaptionPeer.h"
#include "win32/Graphics.h"
#include "win32/PeerFactory.h"

namespace win32 {

namespace {

// A button of the system, which acts as one; only its looks are its own.
class PictureButtonPeer : public CaptionPeer<ui::PictureButton> {
public:
    explicit PictureButtonPeer(ui::PictureButton& button)
        : CaptionPeer(button, {"BUTTON", BS_OWNERDRAW, WS_EX_CLIENTEDGE}) {}

    void applyPicture() override { InvalidateRect(window(), nullptr, FALSE); }

    void command(int code) override {
        if (code == BN_CLICKED) control_.click();
    }

private:
    std::optional<LRESULT> message(UINT message, WPARAM w, LPARAM l) override {
        switch (message) {
            case WM_PAINT: {
                PAINTSTRUCT area;
                draw(BeginPaint(window(), &area));
                EndPaint(window(), &area);
                return 0;
            }
            case WM_PRINTCLIENT:
                draw(reinterpret_cast<HDC>(w));
                return 0;
            case WM_ERASEBKGND:
                return TRUE;
            case WM_SETFOCUS:
            case WM_KILLFOCUS:
                applyPicture();
                return std::nullopt;
            // The dialog manager gives Enter to no button that draws itself.
            case WM_GETDLGCODE:
                return DLGC_BUTTON | (asksForEnter(l) ? DLGC_WANTALLKEYS : 0);
            case WM_KEYDOWN:
                if (w != VK_RETURN) return std::nullopt;
                if (reporting()) control_.click();
                return 0;
            default:
                return std::nullopt;
        }
    }

    void draw(HDC context) {
        RECT all = {};
        GetClientRect(window(), &all);
        FillRect(context, &all, GetSysColorBrush(COLOR_3DFACE));
        drawing_.draw(context, all, control_.picture(), screen());
        if (GetFocus() == window()) DrawFocusRect(context, &all);
    }

    PictureDrawing drawing_;
};

}  // namespace

std::unique_ptr<ui::Peer> PeerFactory::make(ui::PictureButton& button) {
    return std::make_unique<PictureButtonPeer>(button);
}

}  // namespace win32
