// The controls without any native half: what a user does to them raises the event once.
#include <gtest/gtest.h>

#include "simulated/Desktop.h"
#include "ui/CheckBox.h"
#include "ui/CommandButton.h"
#include "ui/Hourglass.h"
#include "ui/Image.h"
#include "ui/Label.h"
#include "ui/Menu.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"

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
