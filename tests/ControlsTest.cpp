// The controls without any native half: what a user does to them raises the event once.
#include <gtest/gtest.h>

#include "simulated/Desktop.h"
#include "ui/CheckBox.h"
#include "ui/CommandButton.h"
#include "ui/Hourglass.h"
#include "ui/Image.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/Menu.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"
#include "ui/TreeView.h"

namespace {

struct Controls : testing::Test {
    simulated::Desktop desktop_;
    ui::Form form_{desktop_, ui::Form::Kind::Dialog, "form", "Form", {6000, 4000}};
    int raised_ = 0;
    ui::Event count_ = [this] { ++raised_; };
};

constexpr ui::Bounds At{120, 120, 1200, 300};

}  // namespace

TEST_F(Controls, AreDeafWhenDisabledOrHiddenWithTheirContainer) {
    ui::Image page(form_, "page", {0, 0, 3000, 3000});
    ui::CommandButton button(page, "button", At, "Press");
    ui::CheckBox check(page, "check", At, "Check");
    ui::Timer timer(form_, "timer", 1);
    ui::MenuItem& item = form_.menu().add("item", "Item");
    item.setEnabled(false);
    check.setEnabled(false);
    page.setLeft(-10000);  // how pages are put away
    timer.onTimer = item.onClick = check.onClick = button.onClick = count_;
    timer.tick();
    item.click();
    button.click();
    page.setLeft(0);
    check.click();
    EXPECT_EQ(raised_, 0);
    button.onClick = [&] {
        button.onClick = nullptr;  // a handler may take its own event away
        ++raised_;
    };
    button.click();
    button.click();
    EXPECT_EQ(raised_, 1);
}

TEST_F(Controls, AListClicksAsItsUseDemands) {
    using Clicks = ui::ListView::Clicks;
    for (const Clicks clicks : {Clicks::OnSelect, Clicks::OnActivate}) {
        ui::ListView list(form_, "list", At, ui::ListView::View::Icon, clicks);
        std::vector<int> clicked;
        list.onItemClick = [&](int number) { clicked.push_back(number); };
        for (const char* name : {"one", "two", "three"}) list.add({name, 0, {}, {}});
        list.setSelected(1);
        list.choose(2);
        list.activate();
        list.click(3);
        list.click(4);
        EXPECT_EQ(clicked, (std::vector{2, 3})) << "by the arrow key, or by Enter, and by the mouse";
        list.clear();
        EXPECT_EQ(list.selected(), 0);
    }
}

TEST_F(Controls, ATreeMarksOneOptionUnderEachParent) {
    ui::TreeView tree(form_, "tree", At);
    for (const char* setting : {"one", "two"}) tree.add({setting, 0, 0, {}, false, false});
    for (const int setting : {1, 2, 1, 2}) tree.add({"option", setting, 0, {}, true, true});
    std::string clicked;
    tree.onOptionClick = [&](int node) { clicked += std::to_string(node); };
    const auto marked = [&] {
        std::string numbers;
        for (int i = 1; i <= tree.count(); ++i)
            if (tree.node(i).selected) numbers += std::to_string(i);
        return numbers;
    };
    EXPECT_EQ(marked(), "56");
    tree.click(3);
    tree.click(1);
    tree.choose(4);
    EXPECT_EQ(marked(), "36");
    tree.activate();
    tree.activate();
    EXPECT_EQ(marked(), "34");
    EXPECT_EQ(clicked, "344");
    EXPECT_TRUE(tree.onOption());
    tree.choose(1);
    EXPECT_FALSE(tree.onOption());
    tree.activate();
    EXPECT_EQ(clicked, "344");
}

TEST_F(Controls, AnHourglassIsOverWhatTheUserSees) {
    ui::Form first(desktop_, ui::Form::Kind::Main, "first", "First", {6000, 4000});
    const auto shownOver = [&](ui::Form& owner) {
        const ui::Hourglass hourglass(owner);
        return std::string(first.pointer() == ui::Pointer::Hourglass ? "first" : "") +
               (form_.pointer() == ui::Pointer::Hourglass ? "form" : "");
    };
    EXPECT_EQ(shownOver(first), "first") << "nothing is shown yet";
    first.show();
    form_.load();
    EXPECT_EQ(shownOver(form_), "first") << "loading";
    form_.show();
    EXPECT_EQ(shownOver(form_), "form");
    EXPECT_EQ(first.pointer(), ui::Pointer::Default);
    form_.unload();
    first.unload();
}

TEST_F(Controls, FocusIsAnnouncedOnceAndRefusedByWhatCannotTakeIt) {
    ui::TextBox first(form_, "first", At), second(form_, "second", At);
    ui::Label label(form_, "label", At, "Label");
    first.onGotFocus = count_;
    first.setFocus();
    first.gotFocus();  // the native control reports it as well
    label.setFocus();
    EXPECT_TRUE(first.focused());
    second.gotFocus();
    first.setFocus();
    first.setFocus();
    EXPECT_EQ(raised_, 2);
}

TEST_F(Controls, LengthsBecomePixelsByTheScreensDpi) {
    const std::tuple<ui::Twips, int, int> cases[] = {
        {22, 96, 1}, {23, 96, 2}, {480, 96, 32}, {480, 192, 64}, {-10000, 96, -667}};
    for (const auto& [twips, dpi, pixels] : cases) EXPECT_EQ(ui::toPixels(twips, dpi), pixels) << twips;
}
