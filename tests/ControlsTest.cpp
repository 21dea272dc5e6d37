// The controls without any native half: what a user does to them raises the event once.
#include <gtest/gtest.h>

#include "simulated/Desktop.h"

namespace {

class Controls : public testing::Test {
protected:
    simulated::Desktop desktop_;
    ui::Form form_{desktop_, ui::Form::Kind::Dialog, "form", "Form", {6000, 4000}};
    int raised_ = 0;
    ui::Event count_ = [this] { ++raised_; };
};

constexpr ui::Bounds At{120, 120, 1200, 300};

}  // namespace

TEST_F(Controls, AreDeafWhenDisabledOrHiddenWithTheirContainer) {
    ui::PictureBox page(form_, "page", {0, 0, 3000, 3000});
    ui::CommandButton button(page, "button", At, "Press");
    ui::CheckBox check(page, "check", At, "Check");
    ui::Timer timer(form_, "timer", 1);
    ui::MenuItem& item = form_.menu().add("item", "Item");
    item.setEnabled(false);
    check.setEnabled(false);
    timer.onTimer = item.onClick = check.onClick = count_;
    timer.tick();
    item.click();
    check.click();
    button.onClick = [&] {
        button.onClick = nullptr;  // a handler may take its own event away
        ++raised_;
    };
    page.setVisible(false);
    button.click();
    page.setVisible(true);
    page.setLeft(-10000);  // how pages are put away
    button.click();
    EXPECT_FALSE(button.acceptsFocus());
    EXPECT_EQ(raised_, 0);
    page.setLeft(0);
    button.click();
    button.click();
    EXPECT_EQ(raised_, 1);
}

TEST_F(Controls, TypingReplacesTheSelectionAndStopsAtTheLimit) {
    ui::TextBox text(form_, "text", At);
    text.setMaxLength(5);
    text.setText("abcd");
    text.select(1, 2);
    text.type("XYZ123");
    EXPECT_EQ(text.text(), "aXYZd");
    text.selectAll();
    text.type("");
    EXPECT_EQ(text.text(), "");
}

TEST_F(Controls, AListClicksAsItsUseDemands) {
    const struct {
        ui::ListView::Clicks clicks;
        int choose, activate, click;
    } cases[] = {{ui::ListView::Clicks::OnSelect, 1, 0, 1}, {ui::ListView::Clicks::OnActivate, 0, 1, 1}};
    for (const auto& c : cases) {
        ui::ListView list(form_, "list", At, ui::ListView::View::Icon, c.clicks);
        list.onItemClick = [&](int) { ++raised_; };
        list.add({"one", 0, {}, {}});
        list.add({"two", 0, {}, {}});
        const auto after = [&](auto&& act) {
            raised_ = 0;
            act();
            return raised_;
        };
        EXPECT_EQ(after([&] { list.setSelected(1); }), 0);
        EXPECT_EQ(after([&] { list.choose(2); }), c.choose);
        EXPECT_EQ(after([&] { list.activate(); }), c.activate);
        EXPECT_EQ(after([&] { list.click(1); }), c.click);
        EXPECT_EQ(after([&] { list.click(3); }), 0);
        EXPECT_THROW(list.setSelected(3), std::out_of_range);
    }
}

TEST_F(Controls, ATreeMarksOneOptionUnderEachParent) {
    ui::TreeView tree(form_, "tree", At);
    const int group = tree.add({"group", 0, 0, {}, false, false});
    const int a = tree.add({"setting", group, 0, {}, false, false});
    const int b = tree.add({"setting", group, 0, {}, false, false});
    std::vector<int> options;
    for (const int setting : {a, b, a, b}) options.push_back(tree.add({"option", setting, 0, {}, true, true}));
    std::vector<int> clicked;
    tree.onOptionClick = [&](int node) { clicked.push_back(node); };
    const auto marks = [&] {
        std::string text;
        for (const int option : options) text += tree.node(option).selected ? '1' : '0';
        return text;
    };
    EXPECT_EQ(marks(), "0011");
    tree.click(options[0]);
    tree.click(group);
    tree.choose(options[1]);
    EXPECT_EQ(marks(), "1001");
    tree.pressSpace();
    tree.pressSpace();
    EXPECT_EQ(marks(), "1100");
    EXPECT_EQ(clicked, (std::vector<int>{options[0], options[1], options[1]}));
}

TEST_F(Controls, FocusIsAnnouncedOnceAndRefusedByWhatCannotTakeIt) {
    ui::TextBox first(form_, "first", At), second(form_, "second", At);
    ui::Label label(form_, "label", At, "Label");
    first.onGotFocus = count_;
    first.setFocus();
    first.setFocus();
    first.gotFocus();  // the native control reports it as well
    label.setFocus();
    EXPECT_TRUE(first.focused());
    second.gotFocus();
    first.setFocus();
    EXPECT_EQ(raised_, 2);
}

TEST_F(Controls, LengthsBecomePixelsByTheScreensDpi) {
    const std::tuple<ui::Twips, int, int> cases[] = {
        {22, 96, 1}, {23, 96, 2}, {480, 96, 32}, {480, 192, 64}, {-10000, 96, -667}};
    for (const auto& [twips, dpi, pixels] : cases) EXPECT_EQ(ui::toPixels(twips, dpi), pixels) << twips;
}
