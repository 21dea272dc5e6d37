// A form's menu bar.
#pragma once

#include <vector>

#include "ui/Menu.h"
#include "win32/Handles.h"

namespace win32 {

class MenuPeer : public ui::Menu::Peer {
public:
    explicit MenuPeer(ui::Menu& menu);
    MenuPeer(const MenuPeer&) = delete;
    MenuPeer& operator=(const MenuPeer&) = delete;
    ~MenuPeer() override;

    void applyMenu() override;
    void applyEnabled(const ui::MenuItem& item) override;
    // Clicks the form's menu item with this command number, if there is one.
    static void choose(const ui::Form& form, int command);

private:
    // Where an item stands in the native menu.
    struct Entry {
        ui::MenuItem* item;
        HMENU menu;
        UINT position;
    };
    MenuHandle build(std::deque<ui::MenuItem>& items, HMENU menu);

    ui::Menu& menu_;
    HWND window_;
    MenuHandle bar_;
    std::vector<Entry> entries_;  // an item's command number is FirstCommand plus its index here
};

}  // namespace win32
