// What a user does to native controls arrives as the control's event, once; what the program does raises none.
#include "EveryControl.h"
#include "win32/Graphics.h"

namespace {

using Names = std::vector<std::string>;

class ControlPeersTest : public WindowsTest {
protected:
    EveryControl form{desktop};

    void SetUp() override {
        form.show();
        desktop.doEvents();
        form.events.clear();
    }
    void TearDown() override { form.unload(); }

    POINT middle(const ui::ListView& list, int number) const {
        RECT label = {LVIR_LABEL, 0, 0, 0};
        ask(list, LVM_GETITEMRECT, static_cast<WPARAM>(number - 1), reinterpret_cast<LPARAM>(&label));
        return {(label.left + label.right) / 2, (label.top + label.bottom) / 2};
    }
    // Of a node's label; its picture stands left of it.
    RECT label(int number) const {
        auto item = ask(form.tree, TVM_GETNEXTITEM, TVGN_ROOT);
        for (int i = 1; i < number; ++i) item = ask(form.tree, TVM_GETNEXTITEM, TVGN_NEXTVISIBLE, item);
        RECT place = {};
        *reinterpret_cast<LRESULT*>(&place) = item;
        ask(form.tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&place));
        return place;
    }
    POINT middleOfTab(int number) const {
        RECT tab = {};
        ask(form.tabs, TCM_GETITEMRECT, static_cast<WPARAM>(number - 1), reinterpret_cast<LPARAM>(&tab));
        return {(tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2};
    }
    void clickNode(int number, int fromLabel) {
        const RECT place = label(number);
        clickAt(form.tree, {place.left + fromLabel, (place.top + place.bottom) / 2});
    }
};

TEST_F(ControlPeersTest, AUsersActionRaisesItsEventOnce) {
    constexpr POINT Inside = {6, 6}, EmptySpace = {190, 110};
    const struct {
        const char* action;
        std::function<void()> act;
        Names events;
    } table[] = {
        {"mouse on a button", [&] { clickAt(form.inFrame, Inside); }, {"inFrame"}},
        {"Space on a button", [&] { press(form.inFrame, VK_SPACE); }, {"inFrame"}},
        {"Enter on a button", [&] { press(form.inFrame, VK_RETURN); }, {"inFrame"}},
        {"Enter elsewhere", [&] { press(form.text, VK_RETURN); }, {"ok"}},
        {"Enter in a list that shows", [&] { press(form.shows, VK_RETURN); }, {"ok"}},
        {"Esc", [&] { press(form.tree, VK_ESCAPE); }, {"cancel"}},
        {"access key", [&] { post(windowOf(form.text), WM_SYSCHAR, 'l', 1 << 29); }, {"cancel"}},
        {"mouse on a check box", [&] { clickAt(form.check, Inside); }, {"check"}},
        {"Space on a check box", [&] { press(form.check, VK_SPACE); }, {"check"}},
        {"mouse on a page's check box", [&] { clickAt(form.onPage, Inside); }, {"onPage"}},
        {"a letter in a text box", [&] { post(windowOf(form.text), WM_CHAR, 'x', 1); }, {"text"}},
        {"arrow in a combo box", [&] { press(form.combo, VK_DOWN); }, {"combo"}},
        {"mouse on a picture", [&] { clickAt(form.picture, Inside); }, {"picture"}},
        {"Space on a picture", [&] { press(form.picture, VK_SPACE); }, {"picture"}},
        {"Enter on a picture", [&] { press(form.picture, VK_RETURN); }, {"picture"}},
        {"mouse on a tab", [&] { clickAt(form.tabs, middleOfTab(2)); }, {"tabs"}},
        {"arrow on the tabs", [&] { press(form.tabs, VK_LEFT); }, {"tabs"}},
        {"mouse on an item", [&] { clickAt(form.shows, middle(form.shows, 2)); }, {"shows2"}},
        {"mouse on the same item", [&] { clickAt(form.shows, middle(form.shows, 2)); }, {"shows2"}},
        {"mouse beside the items", [&] { clickAt(form.shows, EmptySpace); }, {}},
        {"arrow to an item", [&] { press(form.shows, VK_LEFT); }, {"shows1"}},
        {"Space in a list that shows", [&] { press(form.shows, VK_SPACE); }, {}},
        {"mouse on an item that acts", [&] { clickAt(form.acts, middle(form.acts, 1)); }, {"acts1"}},
        {"arrow to an item that acts", [&] { press(form.acts, VK_DOWN); }, {}},
        {"Enter on an item that acts", [&] { press(form.acts, VK_RETURN); }, {"acts2"}},
        {"Space on an item that acts", [&] { press(form.acts, VK_SPACE); }, {"acts2"}},
        {"mouse on an option", [&] { clickNode(4, 3); }, {"tree4"}},
        {"mouse on an option's button", [&] { clickNode(3, -8); }, {"tree3"}},
        {"mouse on a group", [&] { clickNode(1, 3); }, {}},
        {"arrows in the tree", [&] { press(form.tree, VK_DOWN), press(form.tree, VK_DOWN); }, {}},
        {"Space on an option", [&] { press(form.tree, VK_SPACE); }, {"tree3"}},
        {"a closing key on a branch", [&] { press(form.tree, VK_SUBTRACT); }, {}},
        {"menu item",
         [&] { post(windowOf(form), WM_COMMAND, GetMenuItemID(GetSubMenu(GetMenu(windowOf(form)), 0), 0)); },
         {"exit"}},
    };
    for (const auto& row : table) {
        row.act();
        desktop.doEvents();
        EXPECT_EQ(form.events, row.events) << row.action;
        form.events.clear();
    }
    EXPECT_TRUE(form.check.checked() == false && form.onPage.checked());  // clicked twice and once
    EXPECT_EQ(form.text.text(), "x");
    EXPECT_EQ(form.text.selectionStart(), 1);
    EXPECT_EQ(form.combo.listIndex(), 0);
    EXPECT_EQ(form.tabs.selected(), 1);
    EXPECT_EQ(form.shows.selected(), 1);
    EXPECT_EQ(form.acts.selected(), 2);
    EXPECT_EQ(form.tree.current(), 3);
    EXPECT_EQ(ask(form.shows, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 0);
    EXPECT_TRUE(form.tree.node(3).selected);
}

TEST_F(ControlPeersTest, WhatIsDisabledOrHiddenCannotBeUsed) {
    form.inFrame.setFocus();
    form.inFrame.setEnabled(false);
    EXPECT_EQ(GetFocus(), windowOf(form.ok)) << "the focus goes on";
    EXPECT_TRUE(form.ok.focused());
    form.ok.setEnabled(false);
    form.page.setVisible(false);
    clickAt(form.onPage, {6, 6});
    press(form.text, VK_RETURN);
    post(windowOf(form.text), WM_SYSCHAR, 'o', 1 << 29);
    form.text.setText("four");
    form.text.setMaxLength(3);  // for what is typed, not for what is set
    post(windowOf(form.text), WM_CHAR, 'x', 1);
    desktop.doEvents();
    EXPECT_EQ(form.text.text(), "four");
    EXPECT_EQ(form.events, Names());
}

TEST_F(ControlPeersTest, TheFocusIsRememberedByTheForm) {
    int focused = 0;
    form.combo.onGotFocus = [&] { ++focused; };
    SetFocus(windowOf(form.combo));
    EXPECT_TRUE(form.combo.focused());
    EveryControl other(desktop, ui::Form::Kind::Dialog);
    other.show();
    EXPECT_NE(GetFocus(), windowOf(form.combo));
    other.unload();
    SetActiveWindow(windowOf(form));
    EXPECT_EQ(GetFocus(), windowOf(form.combo));
    EXPECT_EQ(focused, 1);
}

TEST_F(ControlPeersTest, TabGoesAroundInTheOrderMade) {
    const Names ring = {"text", "check", "combo",  "picture", "shows", "acts",
                        "tree", "tabs",  "onPage", "inFrame", "ok",    "cancel"};
    form.text.setFocus();
    for (std::size_t i = 1; i <= ring.size(); ++i) {
        pressFocused(VK_TAB);
        ASSERT_TRUE(form.activeControl());
        EXPECT_EQ(form.activeControl()->name(), ring[i % ring.size()]);
    }
    form.acts.setVisible(false);
    form.shows.setFocus();
    pressFocused(VK_TAB);
    EXPECT_TRUE(form.tree.focused());
}

TEST_F(ControlPeersTest, ATimerTicksWhileItIsEnabled) {
    form.timer.setEnabled(true);
    while (form.events.size() < 2) {
        WaitMessage();
        desktop.doEvents();
    }
    form.timer.setEnabled(false);
    form.events.clear();
    desktop.doEvents();
    EXPECT_EQ(form.events, Names());
}

// Which of the controls' native states, read from the system, are not as `change` makes them.
std::string unchanged(EveryControl& f) {
    TVITEMA node = {};
    node.mask = TVIF_PARAM;
    node.hItem = reinterpret_cast<HTREEITEM>(ask(f.tree, TVM_GETNEXTITEM, TVGN_CARET));
    ask(f.tree, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&node));
    const auto images = reinterpret_cast<HIMAGELIST>(ask(f.shows, LVM_GETIMAGELIST, LVSIL_NORMAL));
    const UINT menu = GetMenuState(GetSubMenu(GetMenu(windowOf(f)), 0), 0, MF_BYPOSITION);
    const std::pair<const char*, bool> states[] = {
        {"text", textOf(windowOf(f.text)) == "R&D"},
        {"selection", ask(f.text, EM_GETSEL) == MAKELPARAM(1, 3)},
        {"limit", ask(f.text, EM_GETLIMITTEXT) == 7},
        {"label", textOf(windowOf(f.label)) == "changed"},
        {"caption", textOf(windowOf(f)) == "Changed"},
        {"check", ask(f.check, BM_GETCHECK) == BST_CHECKED},
        {"enabled", !IsWindowEnabled(windowOf(f.cancel))},
        {"combo count", ask(f.combo, CB_GETCOUNT) == 2},
        {"combo", ask(f.combo, CB_GETCURSEL) == 1},
        {"progress", ask(f.progress, PBM_GETPOS) == 250},
        {"tab", ask(f.tabs, TCM_GETCURSEL) == 1},
        {"page", !IsWindowVisible(windowOf(f.onPage))},
        {"items", ask(f.shows, LVM_GETITEMCOUNT) == 2},
        {"selected item", ask(f.shows, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED) == 1},
        {"spacing", ask(f.shows, LVM_GETITEMSPACING, FALSE) == MAKELPARAM(75, 90)},
        {"pictures", images && ImageList_GetImageCount(images) == 3},
        {"nodes", ask(f.tree, TVM_GETCOUNT) == 5},
        {"node with the cursor", node.lParam == 5},
        {"menu", (menu & MF_GRAYED) != 0},
    };
    std::string names;
    for (const auto& [name, right] : states)
        if (!right) names += std::string(name) + " ";
    return names;
}

void change(EveryControl& f) {
    f.text.setText("R&D");
    f.text.select(1, 2);
    f.text.setMaxLength(7);
    f.label.setCaption("changed");
    f.setCaption("Changed");
    f.check.setChecked(true);
    f.cancel.setEnabled(false);
    f.combo.setItems({"x", "y"});
    f.combo.setListIndex(1);
    f.progress.setProgress(1, 4);
    f.tabs.setSelected(2);
    f.page.setVisible(false);
    f.shows.clear();
    f.icons.clear();
    f.icons.add({});
    f.icons.add(plainIcon());
    f.icons.add(plainBitmap());
    f.shows.setImages(&f.icons);
    f.shows.add({"a", 1, {}, {}});
    f.shows.add({"b", 2, {}, {}});
    f.shows.setSelected(2);
    f.shows.setIconSpacing({75, 90});
    f.tree.setImages(&f.icons);
    f.tree.add({"other group", 0, 3, {}});
    f.tree.setCurrent(5);
    f.picture.setPicture(plainIcon());
    f.exit.setEnabled(false);
}

TEST_F(ControlPeersTest, WindowsReflectTheStateHoweverItCameAbout) {
    change(form);
    desktop.doEvents();
    EXPECT_EQ(unchanged(form), "") << "changed while shown";
    EXPECT_EQ(form.events, Names()) << "changes by the program are silent";

    form.detach();
    EXPECT_EQ(form.text.text(), "R&D");
    EXPECT_EQ(form.shows.selected(), 2);
    desktop.open(form);
    desktop.doEvents();
    EXPECT_EQ(unchanged(form), "") << "shown again";

    EveryControl before(desktop);
    change(before);
    before.show();
    desktop.doEvents();
    EXPECT_EQ(unchanged(before), "") << "changed before it was shown";
    EXPECT_EQ(before.events, Names());
    before.unload();
}

TEST(GraphicsTest, ADamagedPictureIsABlankPlace) {
    for (const ui::Picture& whole : {plainIcon(), plainBitmap()}) {
        const auto bytes = whole.image();
        const bool icon = whole.kind() == ui::Picture::Kind::Icon;
        for (std::size_t size = 0; size <= bytes.size(); ++size) {
            const ui::Picture part(whole.kind(), bytes.first(size), whole.width(), whole.height());
            const bool drawn = icon ? bool(win32::makeIcon(part, 32, 32)) : win32::bitmapSize(part).cx != 0;
            ASSERT_EQ(drawn, size == bytes.size()) << size << " of " << bytes.size() << " bytes";
        }
        const win32::Images images = win32::makeImages(32);
        win32::addPicture(images.get(), 32, ui::Picture(whole.kind(), bytes.first(bytes.size() - 1), 32, 32));
        win32::addPicture(images.get(), 32, whole);
        win32::addPicture(images.get(), 32, {});
        EXPECT_EQ(ImageList_GetImageCount(images.get()), 3);
    }
}

TEST(GraphicsTest, AHeaderThatClaimsTooMuchIsNotDrawn) {
    // Header size, width, height, depth, packing, colours.
    const std::pair<std::size_t, std::uint8_t> lies[] = {{3, 0x7F}, {7, 0x80}, {11, 0x80},
                                                         {14, 7},   {16, 1},   {35, 0x40}};
    const ui::Picture whole = plainBitmap();
    for (const auto& [at, lie] : lies) {
        ui::Picture::Bytes bytes(whole.image().begin(), whole.image().end());
        bytes[at] = lie;
        EXPECT_EQ(win32::bitmapSize({whole.kind(), {bytes.data(), bytes.size()}, 4, 4}).cx, 0) << at;
    }
}

}  // namespace
