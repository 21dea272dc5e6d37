#include "ui/TreeView.h"

#include <algorithm>

#include "ui/ImageList.h"
#include "win32/ControlPeer.h"
#include "win32/Graphics.h"
#include "win32/PeerFactory.h"

namespace win32 {

namespace {

// The native tree has an image list of its own: these, and after them the pictures of the control's image list.
enum Image { Blank, OptionOff, OptionOn, FirstPicture };
constexpr int OptionDiameter = 13;  // pixels at 96 DPI
constexpr int DefaultSize = 16;
// The states of an option as those of a tree's check boxes are numbered.
constexpr UINT Unchecked = 1, Checked = 2;

class TreeViewPeer : public ControlPeer<ui::TreeView> {
public:
    explicit TreeViewPeer(ui::TreeView& tree)
        : ControlPeer(tree, {WC_TREEVIEWA,
                             TVS_HASLINES | TVS_LINESATROOT | TVS_HASBUTTONS | TVS_SHOWSELALWAYS | TVS_DISABLEDRAGDROP,
                             WS_EX_CLIENTEDGE}) {}

    void applyImages() override {
        const ui::ImageList* pictures = control_.images();
        const int diameter = screen().scaled(OptionDiameter);
        const int size = std::max(diameter, screen().scaled(pictures ? pictures->size() : DefaultSize));
        Images images = makeImages(size);
        addPicture(images.get(), size, {});
        addOptionButton(images.get(), size, diameter, false);
        addOptionButton(images.get(), size, diameter, true);
        for (int number = 1; pictures && number <= pictures->count(); ++number)
            addPicture(images.get(), size, pictures->picture(number));
        apply(TVM_SETIMAGELIST, TVSIL_NORMAL, images.get());
        std::swap(images_, images);
    }

    // Each node is inserted as expanded, before it has children: so its branch is open as soon as it has some.
    void applyNode(int number) override {
        postponePainting();
        const ui::TreeNode& node = control_.node(number);
        TVINSERTSTRUCTA place = {};
        TVITEMA& item = place.item;
        item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM | TVIF_STATE;
        item.pszText = const_cast<char*>(node.text.c_str());
        item.iImage = item.iSelectedImage = imageOf(node);
        item.lParam = number;
        // There are no pictures for these states, and nothing is drawn: they are for those who ask.
        item.state = INDEXTOSTATEIMAGEMASK(node.option ? node.selected ? Checked : Unchecked : 0u);
        item.stateMask = TVIS_STATEIMAGEMASK;
        if (number <= static_cast<int>(items_.size())) {
            item.mask |= TVIF_HANDLE;
            item.hItem = native(number);
            apply(TVM_SETITEMA, 0, &item);
            return;
        }
        item.state |= TVIS_EXPANDED;
        item.stateMask |= TVIS_EXPANDED;
        place.hParent = node.parent ? native(node.parent) : TVI_ROOT;
        place.hInsertAfter = TVI_LAST;
        items_.push_back(reinterpret_cast<HTREEITEM>(apply(TVM_INSERTITEMA, 0, &place)));
    }

    void applyCleared() override {
        if (!topWhenPainted_) topWhenPainted_ = numberOf(apply(TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE));
        postponePainting();
        apply(TVM_DELETEITEM, 0, TVI_ROOT);
        items_.clear();
        currentWhenPainted_ = visibleNodeWhenPainted_ = false;
    }

    void applyCurrent() override {
        const HTREEITEM item = control_.current() ? native(control_.current()) : nullptr;
        apply(TVM_SELECTITEM, TVGN_CARET, item);
        currentWhenPainted_ = paintingPostponed();
    }

    void applyVisibleNode() override {
        apply(TVM_ENSUREVISIBLE, 0, native(control_.visibleNode()));
        visibleNodeWhenPainted_ = paintingPostponed();
    }

    LRESULT notify(const NMHDR& header) override {
        const auto& change = reinterpret_cast<const NMTREEVIEWA&>(header);
        switch (header.code) {
            case TVN_SELCHANGEDA:
                if (change.itemNew.hItem) control_.choose(static_cast<int>(change.itemNew.lParam));
                return 0;
            default:
                return 0;
        }
    }

private:
    using ControlPeer::native;
    HTREEITEM native(int number) const { return items_.at(static_cast<std::size_t>(number - 1)); }

    // 0 for a native item that is no node's.
    int numberOf(LRESULT item) const {
        const auto at = std::find(items_.begin(), items_.end(), reinterpret_cast<HTREEITEM>(item));
        return at == items_.end() ? 0 : static_cast<int>(at - items_.begin()) + 1;
    }

    static int imageOf(const ui::TreeNode& node) {
        if (node.option) return node.selected ? OptionOn : OptionOff;
        return node.image ? FirstPicture + node.image - 1 : Blank;
    }

    // The native tree does not scroll while its painting is postponed. Only what was asked for meanwhile is asked for
    // again: the user has scrolled since older requests.
    void paintingResumed() override {
        if (currentWhenPainted_ && control_.current()) applyCurrent();
        if (visibleNodeWhenPainted_ && control_.visibleNode()) applyVisibleNode();
        // A tree that has been filled again stays where it was, unless it was told otherwise.
        if (topWhenPainted_ && topWhenPainted_ <= control_.count() && !visibleNodeWhenPainted_)
            apply(TVM_SELECTITEM, TVGN_FIRSTVISIBLE, native(topWhenPainted_));
        currentWhenPainted_ = visibleNodeWhenPainted_ = false;
        topWhenPainted_ = 0;
    }

    std::optional<LRESULT> message(UINT message, WPARAM w, LPARAM l) override {
        switch (message) {
            case WM_GETDLGCODE:
                return DLGC_WANTARROWS | DLGC_WANTCHARS |
                       (control_.onOption() && asksForEnter(l) ? DLGC_WANTALLKEYS : 0);
            case WM_LBUTTONDOWN:
                return press(w, l);
            case WM_KEYDOWN:
                if (w != VK_SPACE && w != VK_RETURN) return std::nullopt;
                if (reporting()) control_.activate();
                return 0;
            case WM_SYSCOLORCHANGE:
                applyImages();  // the option buttons are drawn in the old colours
                return std::nullopt;
            // The native tree would search for a node that begins with this character, and beep.
            case WM_CHAR:
                return w == ' ' || w == '\r' ? std::optional<LRESULT>(0) : std::nullopt;
            default:
                return std::nullopt;
        }
    }

    std::optional<LRESULT> press(WPARAM w, LPARAM l) {
        TVHITTESTINFO test = {};
        test.pt = {static_cast<short>(LOWORD(l)), static_cast<short>(HIWORD(l))};
        SendMessageA(window(), TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&test));
        native(WM_LBUTTONDOWN, w, l);
        if (!(test.flags & TVHT_ONITEM) || !reporting()) return 0;
        if (const int number = numberOf(reinterpret_cast<LRESULT>(test.hItem))) control_.click(number);
        return 0;
    }

    Images images_;
    std::vector<HTREEITEM> items_;
    // What to do when painting is resumed.
    bool currentWhenPainted_ = false, visibleNodeWhenPainted_ = false;
    int topWhenPainted_ = 0;  // number of the node to scroll to the top, 0 for none
};

}  // namespace

std::unique_ptr<ui::Peer> PeerFactory::make(ui::TreeView& tree) {
    return std::make_unique<TreeViewPeer>(tree);
}

}  // namespace win32
