// What a user does to native controls arrives as the control's event, once; what the program does raises none.
#include "EveryControl.h"

namespace {

using Names = std::vector<std::string>;

struct ControlPeersTest : WindowsTest {
    EveryControl form{desktop};

    void SetUp() override {
        form.show();
        desktop.doEvents();
        form.events.clear();
    }

    // Clicks an item of a list, or a tab.
    void clickPart(const ui::Control& control, UINT getRect, int number, UINT press = WM_LBUTTONDOWN) {
        RECT place = {LVIR_LABEL, 0, 0, 0};
        ask(control, getRect, static_cast<WPARAM>(number - 1), reinterpret_cast<LPARAM>(&place));
        clickAt(control, {(place.left + place.right) / 2, (place.top + place.bottom) / 2}, press);
    }
    // The buttons with a thick border, which tells what Enter presses.
    Names marked() {
        Names names;
        for (const ui::Control* control : form.controls())
            if (windowOf(*control) && ask(*control, WM_GETDLGCODE) & DLGC_DEFPUSHBUTTON)
                names.emplace_back(control->name());
        return names;
    }
    void clickItem(const ui::ListView& list, int number) { clickPart(list, LVM_GETITEMRECT, number); }
    LRESULT itemOf(int node) {
        auto item = ask(form.tree, TVM_GETNEXTITEM, TVGN_ROOT);
        for (int i = 1; i < node; ++i) item = ask(form.tree, TVM_GETNEXTITEM, TVGN_NEXTVISIBLE, item);
        return item;
    }
    // 1 for an option, 2 for a selected one.
    LRESULT stateOf(int node) {
        constexpr UINT TvmGetItemState = TV_FIRST + 39;
        return ask(form.tree, TvmGetItemState, static_cast<WPARAM>(itemOf(node)), TVIS_STATEIMAGEMASK) >> 12;
    }
    // `fromLabel`: pixels from the left edge of the node's label; its picture stands left of that.
    void clickNode(int number, int fromLabel) {
        RECT label = {};
        *reinterpret_cast<LRESULT*>(&label) = itemOf(number);
        ask(form.tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&label));
        clickAt(form.tree, {label.left + fromLabel, (label.top + label.bottom) / 2});
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
        {"Enter on a button", [&] { press(form.inFrame, VK_RETURN); }, {"inFrame"}},
        {"Enter in a list that shows", [&] { press(form.shows, VK_RETURN); }, {"ok"}},
        {"Esc", [&] { press(form.tree, VK_ESCAPE); }, {"cancel"}},
        {"access key", [&] { post(windowOf(form.text), WM_SYSCHAR, 'l', 1 << 29); }, {"cancel"}},
        {"mouse on a page's check box", [&] { clickAt(form.onPage, Inside); }, {"onPage"}},
        {"a letter in a text box", [&] { post(windowOf(form.text), WM_CHAR, 'x', 1); }, {}},
        {"arrow in a combo box", [&] { press(form.combo, VK_DOWN); }, {"combo"}},
        {"a choice taken back when the list closes",
         [&] {
             ask(form.combo, CB_SHOWDROPDOWN, TRUE);
             ask(form.combo, CB_SETCURSEL, 2);
             ask(form.combo, CB_SHOWDROPDOWN, FALSE);
         },
         {"combo"}},
        {"a list that closes as it was",
         [&] { ask(form.combo, CB_SHOWDROPDOWN, TRUE), ask(form.combo, CB_SHOWDROPDOWN, FALSE); },
         {}},
        {"the same choice again",
         [&] {
             post(windowOf(form), WM_COMMAND, MAKEWPARAM(0, CBN_SELCHANGE),
                  reinterpret_cast<LPARAM>(windowOf(form.combo)));
         },
         {"combo"}},
        {"mouse on a picture", [&] { clickAt(form.picture, Inside); }, {"picture"}},
        {"Enter on a picture", [&] { press(form.picture, VK_RETURN); }, {"picture"}},
        {"mouse on a tab", [&] { clickPart(form.tabs, TCM_GETITEMRECT, 2); }, {"tabs"}},
        {"arrow on the tabs", [&] { press(form.tabs, VK_LEFT); }, {"tabs"}},
        {"mouse on an item", [&] { clickItem(form.shows, 2); }, {"shows2"}},
        {"mouse on the same item", [&] { clickItem(form.shows, 2); }, {"shows2"}},
        {"focus elsewhere", [&] { form.text.setFocus(); }, {}},
        {"mouse beside the items", [&] { clickAt(form.shows, EmptySpace); }, {}},
        {"arrow to an item", [&] { pressFocused(VK_LEFT); }, {"shows1"}},
        {"Space in a list that shows", [&] { press(form.shows, VK_SPACE); }, {}},
        {"a letter in a list", [&] { post(windowOf(form.shows), WM_CHAR, 't', 1); }, {"shows3"}},
        {"mouse on an item that acts", [&] { clickItem(form.acts, 1); }, {"acts1"}},
        {"arrow to an item that acts", [&] { press(form.acts, VK_DOWN); }, {}},
        {"Enter on an item that acts", [&] { press(form.acts, VK_RETURN); }, {"acts2"}},
        {"mouse on an option's button", [&] { clickNode(3, -8); }, {"tree3"}},
        {"mouse on a group", [&] { clickNode(1, 3); }, {}},
        {"Enter on a group", [&] { press(form.tree, VK_RETURN); }, {"ok"}},
        {"an arrow in the tree", [&] { press(form.tree, VK_DOWN); }, {}},
        {"Enter on a setting", [&] { press(form.tree, VK_RETURN); }, {"ok"}},
        {"another arrow in the tree", [&] { press(form.tree, VK_DOWN); }, {}},
        {"Space on an option", [&] { press(form.tree, VK_SPACE); }, {"tree3"}},
        {"Enter on an option", [&] { press(form.tree, VK_RETURN); }, {"tree3"}},
        {"a closing key on a branch", [&] { press(form.tree, VK_SUBTRACT); }, {}},
        {"Enter on an item that opens",
         [&] {
             form.shows.onOpen = [&] { form.events.emplace_back("open"); };
             press(form.shows, VK_RETURN);
         },
         {"open"}},
        {"a double click on it", [&] { clickPart(form.shows, LVM_GETITEMRECT, 1, WM_LBUTTONDBLCLK); }, {"open"}},
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
    EXPECT_EQ(std::pair(form.onPage.checked(), form.tree.node(3).selected), std::pair(true, true));
    EXPECT_EQ((std::vector{stateOf(2), stateOf(3), stateOf(4)}), (std::vector<LRESULT>{0, 2, 1}));
    form.tree.selectOption(4);
    EXPECT_EQ((std::vector{stateOf(3), stateOf(4)}), (std::vector<LRESULT>{1, 2}));
    EXPECT_EQ(form.text.text() + std::to_string(form.text.selectionStart()), "x1");
    EXPECT_EQ((std::vector{form.combo.listIndex(), form.tabs.selected(), form.shows.selected(), form.acts.selected(),
                           form.tree.current()}),
              (std::vector{2, 1, 3, 2, 3}));
}

TEST_F(ControlPeersTest, CtrlCCopiesTheLabelsWhereNoTextIsSelected) {
    BYTE keys[256] = {};
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    ui::Label hidden(form, "hidden", {100, 300, 1500, 225}, "Hidden");
    hidden.setVisible(false);
    for (const ui::Control* focus : {static_cast<ui::Control*>(&form.shows), static_cast<ui::Control*>(&form.text)}) {
        SetFocus(windowOf(*focus));
        post(GetFocus(), WM_KEYDOWN, 'C', 1);
        desktop.doEvents();
        ASSERT_TRUE(OpenClipboard(nullptr));
        const HANDLE copied = GetClipboardData(CF_TEXT);
        EXPECT_STREQ(copied ? static_cast<const char*>(GlobalLock(copied)) : "", focus == &form.shows ? "&Name: " : "");
        EmptyClipboard();
        CloseClipboard();
    }
    keys[VK_CONTROL] = 0;
    SetKeyboardState(keys);
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

TEST_F(ControlPeersTest, TabGoesAroundInTheOrderMade) {
    const Names ring = {"text", "check", "combo",  "picture", "shows", "acts",
                        "tree", "tabs",  "onPage", "inFrame", "ok",    "cancel"};
    form.text.setFocus();
    for (std::size_t i = 1; i <= ring.size(); ++i) {
        pressFocused(VK_TAB);
        const std::string name(form.activeControl()->name());
        EXPECT_EQ(name, ring[i % ring.size()]);
        EXPECT_EQ(marked(), Names{name == "inFrame" || name == "cancel" ? name : "ok"});
    }
    clickAt(form.inFrame, {6, 6});
    EXPECT_EQ(marked(), Names{"inFrame"});
    form.setDefaultButton(form.cancel);
    EXPECT_EQ(marked(), Names{"inFrame"});
    form.text.setFocus();
    EXPECT_EQ(marked(), Names{"cancel"});
}

std::string toolTipOf(const ui::Control& control) {
    char text[80] = "";
    TOOLINFOA tool = {};
    tool.cbSize = sizeof tool;
    tool.hwnd = windowOf(control.form());
    tool.uId = reinterpret_cast<UINT_PTR>(windowOf(control));
    tool.lpszText = text;
    HWND tips = nullptr;  // lists have some of their own
    while ((tips = FindWindowExA(nullptr, tips, TOOLTIPS_CLASSA, nullptr)))
        SendMessageA(tips, TTM_GETTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
    return text;
}

// Those that stand on the form itself.
std::vector<ui::Control*> windowsOnForm(const EveryControl& f) {
    std::vector<ui::Control*> all;
    for (ui::Control* control : f.controls())
        if (!control->container() && windowOf(*control)) all.push_back(control);
    return all;
}

// A combo box is as high as it likes.
bool standsWhereItShould(const ui::Control& control) {
    RECT at = {};
    GetWindowRect(windowOf(control), &at);
    MapWindowPoints(nullptr, windowOf(control.form()), reinterpret_cast<POINT*>(&at), 2);
    const ui::Bounds should = control.bounds();
    const auto close = [](LONG pixels, ui::Twips twips) { return std::abs(pixels * 15 - twips) <= 15; };
    return close(at.left, should.left) && close(at.top, should.top) && close(at.right, should.right());
}

// A tab strip is a frame, with nothing of it over its page.
bool framesItsPage(const ui::TabStrip& strip) {
    RECT all = {};
    GetClientRect(windowOf(strip), &all);
    const auto shape = [&](HRGN region) { GetWindowRgn(windowOf(strip), region); };
    return regionHas({all.right - 1, all.bottom / 2}, shape) && !regionHas({all.right / 2, all.bottom / 2}, shape);
}

// Which of the controls' native states, read from the system, are not as `change` makes them.
std::string unchanged(EveryControl& f) {
    const auto images = reinterpret_cast<HIMAGELIST>(ask(f.shows, LVM_GETIMAGELIST, LVSIL_NORMAL));
    const auto menu = [&](UINT item) { return GetMenuState(GetSubMenu(GetMenu(windowOf(f)), 0), item, MF_BYPOSITION); };
    const std::pair<const char*, bool> states[] = {
        {"text", textOf(windowOf(f.text)) == "R&D"},
        {"label", textOf(windowOf(f.label)) == "Q&A" && GetWindowLongPtrA(windowOf(f.label), GWL_STYLE) & SS_NOPREFIX},
        {"selection", ask(f.text, EM_GETSEL) == MAKELPARAM(1, 3)},
        {"caption", textOf(windowOf(f)) == "Changed"},
        {"check", ask(f.check, BM_GETCHECK) == BST_CHECKED},
        {"enabled", !IsWindowEnabled(windowOf(f.cancel))},
        {"combo", ask(f.combo, CB_GETCURSEL) == 1},
        {"progress", ask(f.progress, PBM_GETPOS) == 250},
        {"tab", ask(f.tabs, TCM_GETCURSEL) == 1},
        {"frame around the page", framesItsPage(f.tabs)},
        {"page", !IsWindowVisible(windowOf(f.onPage))},
        {"selected item", ask(f.shows, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED) == 1},
        {"spacing", ask(f.shows, LVM_GETITEMSPACING, FALSE) == MAKELPARAM(75, 90)},
        {"pictures", images && ImageList_GetImageCount(images) == 3},
        {"node with the cursor", ask(f.tree, TVM_GETNEXTITEM, TVGN_CARET) != 0},
        {"nodes", ask(f.tree, TVM_GETCOUNT) == 5},
        {"tool tip", toolTipOf(f.picture) == "Now this" && toolTipOf(f.ok).empty()},
        {"menu", (menu(0) & MF_GRAYED) != 0},
        {"its line", menu(1) != UINT_MAX && menu(1) & MF_SEPARATOR},
    };
    std::string names;
    for (const auto& [name, right] : states)
        if (!right) names += std::string(name) + " ";
    for (const ui::Control* control : windowsOnForm(f))
        if (!standsWhereItShould(*control)) names += "place of " + std::string(control->name()) + " ";
    return names;
}

void change(EveryControl& f) {
    for (ui::Control* control : windowsOnForm(f)) {
        const ui::Bounds at = control->bounds();
        control->setBounds({at.left + 150, at.top + 75, at.width - 300, at.height});
    }
    f.text.setText("R&D");
    f.label.setCaption("Q&A");
    f.text.select(1, 2);
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
    f.icons.add(halvedIcon(32));
    f.icons.add(plainBitmap());
    f.shows.setImages(&f.icons);
    f.shows.add({"a", 1, {}, {}});
    f.shows.add({"b", 2, {}, {}});
    f.shows.setSelected(2);
    f.shows.setIconSpacing({75, 90});
    f.tree.setImages(&f.icons);
    f.tree.add({"other group", 0, 3, {}});
    f.tree.setCurrent(5);
    f.picture.setPicture(halvedIcon(32));
    for (const char* tip : {"First that", "Now this"}) f.picture.setToolTip(tip);
    for (const char* tip : {"For a while", ""}) f.ok.setToolTip(tip);
    f.exit.setEnabled(false);
}

TEST_F(ControlPeersTest, WindowsReflectTheStateHoweverItCameAbout) {
    change(form);
    desktop.doEvents();
    EXPECT_EQ(unchanged(form), "") << "changed while shown";
    EXPECT_EQ(form.events, Names()) << "changes by the program are silent";

    form.detach();
    desktop.open(form);
    desktop.doEvents();
    EXPECT_EQ(unchanged(form), "") << "shown again";
}

TEST_F(ControlPeersTest, ATreeStaysWhereTheUserHasScrolledIt) {
    const auto firstVisibleNode = [&] { return 1 + GetScrollPos(windowOf(form.tree), SB_VERT); };
    const auto fillTree = [&] {
        form.tree.clear();
        form.tree.add({"group", 0, 0, {}});
        for (int setting = 0; setting < 20; ++setting) {
            const int parent = form.tree.add({"setting", 1, 0, {}});
            form.tree.add({"off", parent, 0, {}, true, true});
            form.tree.add({"on", parent, 0, {}, true});
        }
        desktop.doEvents();
    };
    fillTree();
    form.tree.setCurrent(1);
    form.tree.ensureVisible(1);
    desktop.doEvents();
    ASSERT_EQ(firstVisibleNode(), 1);
    post(windowOf(form.tree), WM_VSCROLL, SB_BOTTOM);
    desktop.doEvents();
    const int first = firstVisibleNode();
    ASSERT_GT(first, 40);
    form.tree.selectOption(4);
    desktop.doEvents();
    EXPECT_EQ(firstVisibleNode(), first) << "an option far above was marked by the program";
    form.tree.click(61);
    desktop.doEvents();
    EXPECT_TRUE(form.tree.node(61).selected);
    EXPECT_EQ(firstVisibleNode(), first) << "an option was clicked";
    fillTree();
    EXPECT_EQ(firstVisibleNode(), first) << "filled again";
    form.tree.clear();
    fillTree();
    form.tree.setCurrent(61);
    form.tree.setCurrent(1);
    desktop.doEvents();
    EXPECT_EQ(firstVisibleNode(), 1) << "the program has asked for it";
}

TEST_F(ControlPeersTest, AListStaysWhereTheUserHasScrolledItWhenItGrows) {
    for (int item = 0; item < 60; ++item) form.acts.add({"more", 0, {}, {}});
    form.acts.setSelected(1);
    desktop.doEvents();
    const auto top = [&] { return ask(form.acts, LVM_GETTOPINDEX); };
    ASSERT_EQ(top(), 0);
    ask(form.acts, LVM_ENSUREVISIBLE, 62, FALSE);
    const LRESULT scrolled = top();
    ASSERT_GT(scrolled, 30);
    form.acts.add({"last", 0, {}, {}});
    desktop.doEvents();
    EXPECT_EQ(top(), scrolled);
}

}  // namespace
