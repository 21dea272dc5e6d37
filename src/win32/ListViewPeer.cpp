#include "ui/ListView.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "ui/CommandButton.h"
#include "win32/ControlPeer.h"
#include "win32/ImageListPeer.h"
#include "win32/PeerFactory.h"

namespace win32 {

namespace {

constexpr int NoImage = -2;  // I_IMAGENONE; older versions find no such picture and draw none
constexpr std::size_t LongestLabel = 40;
constexpr UINT LvmSetIconSpacing = 4149;  // LVM_SETICONSPACING
constexpr UINT LvmSetExtendedStyle = LVM_FIRST + 54;
constexpr LPARAM LvsExFullRowSelect = 0x20, LvsExInfoTip = 0x400, LvsExLabelTip = 0x4000;

class ListViewPeer : public ControlPeer<ui::ListView> {
public:
    explicit ListViewPeer(ui::ListView& list) : ControlPeer(list, {WC_LISTVIEWA, styleOf(list), WS_EX_CLIENTEDGE}) {
        // Older versions of the control know none of them, or not all.
        if (list.view() == ui::ListView::View::Report)
            apply(LvmSetExtendedStyle, 0, LvsExFullRowSelect | LvsExInfoTip | LvsExLabelTip);
    }

    void applyImages() override {
        bind(LVSIL_NORMAL, control_.largeImages());
        bind(LVSIL_SMALL, control_.smallImages());
    }

    void applyColumn() override {
        if (control_.view() != ui::ListView::View::Report) return;
        LVCOLUMNA column = {};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.cx = roomForColumn();
        column.pszText = const_cast<char*>(control_.columnHeading().c_str());
        apply(LVM_DELETECOLUMN);
        apply(LVM_INSERTCOLUMNA, 0, &column);
    }

    void applyItem(int number) override {
        postponePainting();
        const ui::ListItem& shown = control_.item(number);
        LVITEMA item = {};
        item.mask = LVIF_TEXT | LVIF_IMAGE;
        item.iItem = number - 1;
        // The label of the item that has the focus is drawn whole: one of 259 characters would be higher than the list,
        // which scrolls to its end then, past the item.
        const bool icon = control_.view() == ui::ListView::View::Icon;
        const std::string text = icon ? shortened(shown.text, LongestLabel) : shown.text;
        item.pszText = const_cast<char*>(text.c_str());
        item.iImage = shown.image ? shown.image - 1 : NoImage;
        const bool known = number <= SendMessageA(window(), LVM_GETITEMCOUNT, 0, 0);
        apply(known ? LVM_SETITEMA : LVM_INSERTITEMA, 0, &item);
    }

    void applyCleared() override {
        postponePainting();
        apply(LVM_DELETEALLITEMS);
    }

    void applySelected() override {
        mark(control_.selected() - 1);
        markWhenPainted_ = paintingPostponed();
    }

    void applySpacing() override {
        const auto spacing = control_.iconSpacing();
        if (!spacing) return;
        apply(LvmSetIconSpacing, 0,
              MAKELPARAM(screen().scaled(spacing->horizontal), screen().scaled(spacing->vertical)));
        apply(LVM_ARRANGE, LVA_DEFAULT);
        InvalidateRect(window(), nullptr, TRUE);  // an item that keeps its place would keep its old picture
    }

    // The selection moves by keyboard or by the right mouse button; a press of the left one is reported by `press`.
    LRESULT notify(const NMHDR& header) override {
        if (header.code != LVN_ITEMCHANGED || pressing_) return 0;
        const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
        if (change.uNewState & ~change.uOldState & LVIS_SELECTED) control_.choose(change.iItem + 1);
        return 0;
    }

private:
    // A column as wide as the list would leave no room for its border, and for its scroll bar while there is one.
    int roomForColumn() const {
        RECT inside = {};
        GetClientRect(window(), &inside);
        return std::min(screen().pixels(control_.columnWidth()), static_cast<int>(inside.right));
    }

    static DWORD styleOf(const ui::ListView& list) {
        constexpr DWORD common = LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS;
        if (list.view() == ui::ListView::View::Icon) return common | LVS_ICON | LVS_AUTOARRANGE;
        return common | LVS_REPORT | (list.columnHeading().empty() ? DWORD{LVS_NOCOLUMNHEADER} : DWORD{0});
    }

    // Binding makes the native list forget its spacing, so only what has changed is bound.
    void bind(WPARAM which, const ui::ImageList* list) {
        const auto images = reinterpret_cast<LPARAM>(ImageListPeer::imagesOf(list));
        if (SendMessageA(window(), LVM_GETIMAGELIST, which, 0) != images) apply(LVM_SETIMAGELIST, which, images);
    }

    // Moves the native mark to `item` (from 0), or takes it away (-1).
    void mark(int item) {
        LVITEMA state = {};
        state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
        if (item < 0) state.stateMask = LVIS_SELECTED;
        state.state = item < 0 ? 0 : state.stateMask;
        apply(LVM_SETITEMSTATE, static_cast<WPARAM>(item), &state);
        if (item >= 0) apply(LVM_ENSUREVISIBLE, static_cast<WPARAM>(item), LPARAM{FALSE});
    }

    void paintingResumed() override {
        applySpacing();
        // The native list does not scroll while its painting is postponed, and later the user may have scrolled away.
        if (std::exchange(markWhenPainted_, false) && control_.selected()) mark(control_.selected() - 1);
    }

    std::optional<LRESULT> message(UINT message, WPARAM w, LPARAM l) override {
        switch (message) {
            // The native list would also ask for Tab.
            case WM_GETDLGCODE:
                return DLGC_WANTARROWS | DLGC_WANTCHARS | (enterActivates() && asksForEnter(l) ? DLGC_WANTALLKEYS : 0);
            case WM_LBUTTONDOWN:
                return press(w, l);
            case WM_LBUTTONDBLCLK:
                if (control_.onOpen && hit(l) >= 0) return open();
                [[fallthrough]];
            case WM_RBUTTONDOWN:
                return hit(l) < 0 ? keepSelection() : std::nullopt;
            case WM_KEYDOWN:
                return key(w);
            case WM_CONTEXTMENU:
                return showCommands(l);
            case WM_SIZE:
                // Also when the scroll bar appears, which takes its room from the column.
                native(message, w, l);
                if (control_.view() == ui::ListView::View::Report)
                    apply(LVM_SETCOLUMNWIDTH, 0, MAKELPARAM(roomForColumn(), 0));
                return 0;
            // The native list would search for an item that begins with this character, and beep.
            case WM_CHAR:
                return w == ' ' || w == '\r' ? std::optional<LRESULT>(0) : std::nullopt;
            default:
                return std::nullopt;
        }
    }

    // Native lists differ in what they report of a press, and when. What counts is where it was.
    std::optional<LRESULT> press(WPARAM w, LPARAM l) {
        const int item = hit(l);
        if (item < 0) return keepSelection();
        pressing_ = true;
        native(WM_LBUTTONDOWN, w & ~static_cast<WPARAM>(MK_CONTROL | MK_SHIFT), l);
        pressing_ = false;
        if (!reporting()) return 0;
        if (item < SendMessageA(window(), LVM_GETITEMCOUNT, 0, 0)) mark(item);
        control_.click(item + 1);
        return 0;
    }

    std::optional<LRESULT> keepSelection() {
        SetFocus(window());
        return 0;
    }

    std::optional<LRESULT> key(WPARAM w) {
        if (w != VK_SPACE && w != VK_RETURN) return std::nullopt;
        if (w == VK_RETURN && control_.onOpen) return open();
        if (reporting()) control_.activate();
        return 0;
    }

    std::optional<LRESULT> open() {
        if (reporting()) control_.open();
        return 0;
    }

    bool enterActivates() const {
        return (control_.onOpen || control_.clicks() == ui::ListView::Clicks::OnActivate) && control_.selected() > 0;
    }

    // By keyboard at the selected item; by mouse only on an item, which the press has selected.
    std::optional<LRESULT> showCommands(LPARAM l) {
        if (control_.commands().empty()) return std::nullopt;
        POINT at = {static_cast<short>(LOWORD(l)), static_cast<short>(HIWORD(l))};
        if (l == -1) {
            RECT item = {LVIR_ICON, 0, 0, 0};
            const auto selected = static_cast<WPARAM>(control_.selected() - 1);
            apply(LVM_ENSUREVISIBLE, selected, LPARAM{FALSE});
            apply(LVM_GETITEMRECT, selected, &item);
            at = {(item.left + item.right) / 2, (item.top + item.bottom) / 2};
        } else {
            ScreenToClient(window(), &at);
        }
        if (!reporting() || control_.selected() == 0 || hit(MAKELPARAM(at.x, at.y)) < 0) return 0;
        ClientToScreen(window(), &at);

        const MenuHandle menu(CreatePopupMenu());
        UINT_PTR number = 0;
        for (const ui::CommandButton* button : control_.commands())
            AppendMenuA(menu.get(), MF_STRING | (button->enabled() ? MF_ENABLED : MF_GRAYED), ++number,
                        button->caption().c_str());
        form().inMenu(window());
        const int chosen =
            TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0, window(), nullptr);
        form().inMenu(nullptr);
        if (chosen > 0 && reporting()) control_.commands()[static_cast<std::size_t>(chosen - 1)]->click();
        return 0;
    }

    // The item at a point, from 0; -1 is none.
    int hit(LPARAM point) const {
        LVHITTESTINFO test = {};
        test.pt = {static_cast<short>(LOWORD(point)), static_cast<short>(HIWORD(point))};
        return static_cast<int>(SendMessageA(window(), LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&test)));
    }

    bool pressing_ = false;
    bool markWhenPainted_ = false;
};

}  // namespace

std::unique_ptr<ui::Peer> PeerFactory::make(ui::ListView& list) {
    return std::make_unique<ListViewPeer>(list);
}

}  // namespace win32
