// TextBox, ComboBox, TabStrip: where something is entered or picked.
#include <algorithm>

#include "win32/ControlWindow.h"
#include "win32/Peers.h"

namespace win32 {

namespace {

class TextBoxPeer : public ControlPeer<ui::TextBox> {
public:
    explicit TextBoxPeer(ui::TextBox& box)
        : ControlPeer(
              box, {"EDIT", box.multiLine() ? DWORD{ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL} : DWORD{ES_AUTOHSCROLL},
                    WS_EX_CLIENTEDGE}) {}

    void applyText() override { apply(WM_SETTEXT, 0, control_.text().c_str()); }
    void applyMaxLength() override { apply(EM_LIMITTEXT, static_cast<WPARAM>(control_.maxLength())); }
    void applySelection() override {
        const int start = control_.selectionStart();
        apply(EM_SETSEL, static_cast<WPARAM>(start), static_cast<LPARAM>(start + control_.selectionLength()));
    }

    void command(int code) override {
        if (code != EN_CHANGE) return;
        std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window())) + 1, '\0');
        text.resize(static_cast<std::size_t>(GetWindowTextA(window(), text.data(), static_cast<int>(text.size()))));
        DWORD start = 0, end = 0;
        SendMessageA(window(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        control_.userChangedText(std::move(text), static_cast<int>(start), static_cast<int>(end - start));
    }

private:
    // A box of several lines would keep Tab, Enter and Esc for itself.
    std::optional<LRESULT> message(UINT message, WPARAM w, LPARAM l) override {
        if (message != WM_GETDLGCODE || !control_.multiLine()) return std::nullopt;
        return native(message, w, l) & ~(DLGC_WANTALLKEYS | DLGC_WANTTAB);
    }
};

class ComboBoxPeer : public ControlPeer<ui::ComboBox> {
public:
    explicit ComboBoxPeer(ui::ComboBox& box) : ControlPeer(box, {"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL}) {}

    void applyItems() override {
        apply(CB_RESETCONTENT);
        for (const std::string& item : control_.items()) apply(CB_ADDSTRING, 0, item.c_str());
        applyListIndex();
    }
    void applyListIndex() override { apply(CB_SETCURSEL, static_cast<WPARAM>(control_.listIndex())); }

    void command(int code) override {
        if (code == CBN_SELCHANGE) control_.choose(static_cast<int>(SendMessageA(window(), CB_GETCURSEL, 0, 0)));
    }

private:
    // The native height includes the list that drops down.
    RECT bounds() const override {
        RECT all = ControlPeer::bounds();
        constexpr LRESULT most = 8;
        const LRESULT count = std::clamp<LRESULT>(static_cast<LRESULT>(control_.items().size()), 1, most);
        all.bottom += static_cast<LONG>((count + 1) * SendMessageA(window(), CB_GETITEMHEIGHT, 0, 0));
        return all;
    }
};

class TabStripPeer : public ControlPeer<ui::TabStrip> {
public:
    explicit TabStripPeer(ui::TabStrip& strip) : ControlPeer(strip, {WC_TABCONTROLA}) {}

    void applyTabs() override {
        apply(TCM_DELETEALLITEMS);
        int place = 0;
        for (const std::string& caption : control_.tabs()) {
            TCITEMA item = {};
            item.mask = TCIF_TEXT;
            item.pszText = const_cast<char*>(caption.c_str());
            apply(TCM_INSERTITEMA, static_cast<WPARAM>(place++), &item);
        }
        cutPageOut();
    }
    void applySelected() override { apply(TCM_SETCURSEL, static_cast<WPARAM>(control_.selected() - 1)); }
    void applyBounds() override {
        ControlPeer::applyBounds();
        cutPageOut();
    }

    LRESULT notify(const NMHDR& header) override {
        if (header.code == TCN_SELCHANGE)
            control_.choose(static_cast<int>(SendMessageA(window(), TCM_GETCURSEL, 0, 0)) + 1);
        return 0;
    }

private:
    // The controls of the pages are the strip's neighbours, later in the tab order and so below it: without the inner
    // part of its window it can neither paint over them nor take their clicks.
    void cutPageOut() {
        RECT all = {}, page = {};
        GetClientRect(window(), &all);
        page = all;
        apply(TCM_ADJUSTRECT, FALSE, &page);
        if (page.right <= page.left || page.bottom <= page.top) return;
        const HRGN region = CreateRectRgnIndirect(&all), inner = CreateRectRgnIndirect(&page);
        CombineRgn(region, region, inner, RGN_DIFF);
        DeleteObject(inner);
        SetWindowRgn(window(), region, TRUE);  // the system owns the region now
    }
};

}  // namespace

std::unique_ptr<ui::TextBox::Peer> makePeer(ui::TextBox& box) {
    return std::make_unique<TextBoxPeer>(box);
}
std::unique_ptr<ui::ComboBox::Peer> makePeer(ui::ComboBox& box) {
    return std::make_unique<ComboBoxPeer>(box);
}
std::unique_ptr<ui::TabStrip::Peer> makePeer(ui::TabStrip& strip) {
    return std::make_unique<TabStripPeer>(strip);
}

}  // namespace win32
