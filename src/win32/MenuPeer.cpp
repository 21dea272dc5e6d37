#include "win32/MenuPeer.h"

#include "win32/FormPeer.h"
#include "win32/PeerFactory.h"

namespace win32 {

namespace {
constexpr UINT FirstCommand = 0x4000;
// A menu is as wide as its longest text, even if that is wider than the screen.
constexpr std::size_t LongestText = 50;

}  // namespace

MenuPeer::MenuPeer(ui::Menu& menu) : menu_(menu), window_(FormPeer::of(menu.form())->window()) {}

MenuPeer::~MenuPeer() {
    SetMenu(window_, nullptr);
}

void MenuPeer::applyMenu() {
    entries_.clear();
    MenuHandle bar = build(menu_.items(), CreateMenu());
    SetMenu(window_, bar.get());
    std::swap(bar_, bar);
}

// A menu owns the menus that open from it.
MenuHandle MenuPeer::build(std::deque<ui::MenuItem>& items, HMENU menu) {
    for (ui::MenuItem& item : items) {
        const UINT_PTR command = FirstCommand + entries_.size();
        entries_.push_back({&item, menu, static_cast<UINT>(GetMenuItemCount(menu))});
        const UINT state = item.enabled() ? MF_ENABLED : MF_GRAYED;
        if (item.separator()) {
            AppendMenuA(menu, MF_SEPARATOR, command, nullptr);
        } else if (item.items().empty()) {
            AppendMenuA(menu, MF_STRING | state, command, shortened(item.caption(), LongestText).c_str());
        } else {
            const UINT_PTR popup = reinterpret_cast<UINT_PTR>(build(item.items(), CreatePopupMenu()).release());
            AppendMenuA(menu, MF_POPUP | state, popup, item.caption().c_str());
        }
    }
    return MenuHandle(menu);
}

void MenuPeer::applyEnabled(const ui::MenuItem& item) {
    for (const Entry& entry : entries_) {
        if (entry.item != &item) continue;
        EnableMenuItem(entry.menu, entry.position, MF_BYPOSITION | (item.enabled() ? MF_ENABLED : MF_GRAYED));
        if (entry.menu == bar_.get()) DrawMenuBar(window_);
    }
}

void MenuPeer::choose(const ui::Form& form, int command) {
    const auto* peer = form.menu().peerAs<MenuPeer>();
    const auto index = static_cast<std::size_t>(command) - FirstCommand;
    if (peer && index < peer->entries_.size()) peer->entries_[index].item->click();
}

std::unique_ptr<ui::Peer> PeerFactory::make(ui::Menu& menu) {
    return std::make_unique<MenuPeer>(menu);
}

}  // namespace win32
