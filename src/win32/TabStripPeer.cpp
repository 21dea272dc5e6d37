#include "ui/TabStrip.h"

#include "win32/ControlPeer.h"
#include "win32/PeerFactory.h"

namespace win32 {

namespace {

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
    // The controls of the pages are siblings of the strip, and below it because they come later in the tab order. With
    // the inner part cut out of its window, it can neither paint over them nor take their clicks.
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

std::unique_ptr<ui::Peer> PeerFactory::make(ui::TabStrip& strip) {
    return std::make_unique<TabStripPeer>(strip);
}

}  // namespace win32
