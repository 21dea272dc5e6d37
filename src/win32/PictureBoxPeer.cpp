#include "ui/PictureBox.h"

#include "win32/ControlPeer.h"
#include "win32/Graphics.h"
#include "win32/PeerFactory.h"

namespace win32 {

namespace {

const char* pictureClass() {
    static const char* const name = [] {
        WNDCLASSA picture = {};
        picture.lpfnWndProc = DefWindowProcA;  // every control's window is subclassed
        picture.hInstance = GetModuleHandleA(nullptr);
        picture.hCursor = LoadCursorA(nullptr, IDC_ARROW);
        picture.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_3DFACE + 1);
        picture.lpszClassName = "TavimorPicture";
        RegisterClassA(&picture);
        return picture.lpszClassName;
    }();
    return name;
}

class PictureBoxPeer : public ControlPeer<ui::PictureBox> {
public:
    explicit PictureBoxPeer(ui::PictureBox& box)
        : ControlPeer(box, {pictureClass(), 0,
                            box.border() == ui::PictureBox::Border::Sunken ? DWORD{WS_EX_CLIENTEDGE} : DWORD{0}}) {}

    void applyPicture() override { InvalidateRect(window(), nullptr, TRUE); }
    void applyBounds() override {
        ControlPeer::applyBounds();
        clean();
    }
    void applyShowing() override {
        ControlPeer::applyShowing();
        clean();
    }

private:
    std::optional<LRESULT> message(UINT message, WPARAM w, LPARAM l) override {
        switch (message) {
            case WM_PAINT:
                paint();
                return 0;
            // A page is transparent: the form has already drawn the windowless controls on it.
            case WM_ERASEBKGND:
                return page_ ? std::optional<LRESULT>(TRUE) : std::nullopt;
            case WM_LBUTTONDOWN:
                press();
                return 0;
            case WM_KEYDOWN:
                if (w == VK_SPACE || w == VK_RETURN) click();
                return 0;
            case WM_GETDLGCODE:
                return asksForEnter(l) ? DLGC_WANTALLKEYS : DLGC_STATIC;
            case WM_SETFOCUS:
            case WM_KILLFOCUS:
                InvalidateRect(window(), nullptr, TRUE);
                return std::nullopt;
            default:
                return std::nullopt;
        }
    }

    // A page does not erase its background, on which the previous page may still be seen.
    void clean() {
        if (page_ && control_.showing()) form().redraw(control_.absoluteBounds());
    }

    void press() {
        if (control_.tabStop()) SetFocus(window());
        click();
    }
    void click() {
        if (reporting()) control_.click();
    }

    void paint() {
        PAINTSTRUCT area;
        const HDC context = BeginPaint(window(), &area);
        RECT all = {};
        GetClientRect(window(), &all);
        drawing_.draw(context, all, control_.picture(), screen());
        if (GetFocus() == window()) DrawFocusRect(context, &all);
        EndPaint(window(), &area);
    }

    void childAdded() override {
        page_ = true;
        SetWindowPos(window(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        ControlPeer::childAdded();
    }

    PictureDrawing drawing_;
    bool page_ = false;
};

}  // namespace

std::unique_ptr<ui::Peer> PeerFactory::make(ui::PictureBox& box) {
    return std::make_unique<PictureBoxPeer>(box);
}

}  // namespace win32
