// PictureBox and ImageList.
#include "win32/ControlWindow.h"
#include "win32/Graphics.h"
#include "win32/Peers.h"

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
            // A page shows the form: what stands on it is drawn before it.
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

    // A page erases nothing, and the page before may have left something in its place.
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

    void lieBehind() override {
        page_ = true;
        SetWindowPos(window(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }

    PictureDrawing drawing_;
    bool page_ = false;
};

class ImageListPeer : public ui::ImageList::Peer {
public:
    explicit ImageListPeer(ui::ImageList& list) : list_(list), images_(makeImages(list.size())) {}
    HIMAGELIST images() const { return images_.get(); }

    void applyAdded() override {
        addPicture(images_.get(), list_.size(), list_.picture(list_.count()));
        tellUsers();
    }
    void applyCleared() override {
        ImageList_Remove(images_.get(), -1);
        tellUsers();
    }

private:
    // A list can be older than the pictures it shows, and a tree keeps a copy of them.
    void tellUsers() {
        for (ui::Component* component : list_.form().components()) {
            if (!component->attached()) continue;
            if (auto* list = dynamic_cast<ui::ListView*>(component)) {
                if (list->largeImages() == &list_ || list->smallImages() == &list_)
                    list->peerAs<ui::ListView::Peer>()->applyImages();
            } else if (auto* tree = dynamic_cast<ui::TreeView*>(component)) {
                if (tree->images() == &list_) tree->peerAs<ui::TreeView::Peer>()->applyImages();
            }
        }
    }

    ui::ImageList& list_;
    Images images_;
};

}  // namespace

HIMAGELIST imagesOf(const ui::ImageList* list) {
    return list && list->attached() ? list->peerAs<ImageListPeer>()->images() : nullptr;
}

std::unique_ptr<ui::Image::Peer> makePeer(ui::PictureBox& box) {
    return std::make_unique<PictureBoxPeer>(box);
}
std::unique_ptr<ui::ImageList::Peer> makePeer(ui::ImageList& list) {
    return std::make_unique<ImageListPeer>(list);
}

}  // namespace win32
