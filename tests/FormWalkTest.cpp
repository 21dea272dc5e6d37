// Walks every form of the program, page by page, and checks what a user of keyboard, mouse and a small screen relies
// on.
#include <cctype>

#include "backup/frmBackup.h"
#include "backup/frmRestore.h"
#include "errors/frmError.h"
#include "mail/frmOESecurity.h"
#include "support/EditingFixture.h"
#include "ui/CheckBox.h"
#include "ui/Menu.h"
#include "ui/ProgressBar.h"
#include "ui/TabStrip.h"

namespace {

using FormPointer = std::unique_ptr<ui::Form>;

template <class F>
FormPointer makeForm(forms::Context& program) {
    return std::make_unique<F>(program);
}

// With what it restores through.
struct RestoringForm : private backup::Restoration, public frmRestore {
    explicit RestoringForm(forms::Context& program) : Restoration(program), frmRestore(program, *this) {}
};

// Every form there is.
const std::pair<const char*, std::function<FormPointer(forms::Context&)>> Forms[] = {
    {"frmMain", makeForm<frmMain>},
    {"frmEdit", [](forms::Context& program) { return std::make_unique<frmEdit>(program, "2", "Trusted sites"); }},
    {"frmAdd", makeForm<frmAdd>},
    {"frmSecurity",
     [](forms::Context& program) { return std::make_unique<frmSecurity>(program, "2", "Trusted sites"); }},
    {"frmBackup", makeForm<frmBackup>},
    {"frmRestore", makeForm<RestoringForm>},
    {"frmOESecurity", makeForm<frmOESecurity>},
    {"frmError", [](forms::Context& program) { return std::make_unique<frmError>(program.platform.desktop); }},
    {"frmIconSelector",
     [](forms::Context& program) {
         // Its target stands on a form of its own, which the selector never touches but to draw.
         static simulated::Desktop desktop;
         static ui::Form owner(desktop, ui::Form::Kind::Dialog, "owner", "", {});
         static ui::Image target(owner, "target", {});
         return std::make_unique<frmIconSelector>(program.platform, "C:\\WINDOWS\\SYSTEM\\shell32.dll", target,
                                                  nullptr);
     }},
};

class EveryForm : public testing::TestWithParam<int> {
protected:
    void SetUp() override { system_.seedZones(); }

    // Runs `check` on the form as it is first seen, and on each page of its tab strip.
    template <class Check>
    void onEachPage(Check check) {
        ui::TabStrip* tabs = nullptr;
        for (ui::Control* control : form_->controls())
            if (auto* strip = dynamic_cast<ui::TabStrip*>(control)) tabs = strip;
        if (!tabs) return check();
        for (int page = 1; page <= static_cast<int>(tabs->tabs().size()); ++page) {
            SCOPED_TRACE("page " + tabs->tabs()[static_cast<std::size_t>(page - 1)]);
            tabs->choose(page);
            check();
        }
    }

    std::vector<ui::Control*> showing() const {
        std::vector<ui::Control*> all;
        for (ui::Control* control : form_->controls())
            if (control->showing()) all.push_back(control);
        return all;
    }

    TestSystem system_;
    app::Application program_{system_.platform()};
    FormPointer form_ = Forms[GetParam()].second(program_);
};

char accessKey(const std::string& caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != '&') continue;
        if (caption[i + 1] != '&') return static_cast<char>(std::tolower(static_cast<unsigned char>(caption[i + 1])));
        ++i;
    }
    return 0;
}

void expectUniqueKeys(const std::vector<std::string>& captions) {
    std::map<char, std::string> taken;
    for (const std::string& caption : captions)
        if (const char key = accessKey(caption); key && !taken.emplace(key, caption).second)
            ADD_FAILURE() << "\"" << caption << "\" and \"" << taken[key] << "\"";
}

template <class Items>
std::vector<std::string> captionsOf(const Items& items) {
    std::vector<std::string> captions;
    for (const ui::MenuItem& item : items) captions.push_back(item.caption());
    return captions;
}

// What a user operates, and so must be able to reach with Tab.
bool operable(const ui::Control& control) {
    if (auto* picture = dynamic_cast<const ui::PictureBox*>(&control)) return static_cast<bool>(picture->onClick);
    return !dynamic_cast<const ui::Label*>(&control) && !dynamic_cast<const ui::Image*>(&control) &&
           !dynamic_cast<const ui::Frame*>(&control) && !dynamic_cast<const ui::ProgressBar*>(&control);
}

bool overlap(const ui::Bounds& a, const ui::Bounds& b) {
    return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

std::string called(const ui::Control& control) {
    return control.name() + (control.index() < 0 ? "" : "(" + std::to_string(control.index()) + ")");
}

}  // namespace

TEST_P(EveryForm, HasAccessKeysThatDoNotClash) {
    for (const ui::MenuItem& menu : form_->menu().items()) expectUniqueKeys(captionsOf(menu.items()));
    onEachPage([&] {
        std::vector<std::string> captions = captionsOf(form_->menu().items());
        for (const ui::Control* control : showing()) captions.push_back(control->accessText());
        expectUniqueKeys(captions);
    });
}

TEST_P(EveryForm, IsReachedWholeWithTab) {
    onEachPage([&] {
        int stops = 0;
        for (const ui::Control* control : showing()) {
            EXPECT_EQ(control->tabStop(), operable(*control)) << called(*control);
            stops += control->tabStop();
        }
        EXPECT_GT(stops, 0);
    });
}

TEST_P(EveryForm, OverlapsNothingAndCutsNothingOff) {
    onEachPage([&] {
        const auto controls = showing();
        for (const ui::Control* a : controls) {
            const ui::Control* page = a->container();
            const ui::Size within = page ? ui::Size{page->width(), page->height()} : form_->client();
            const bool whole = a->left() >= 0 && a->top() >= 0 && a->bounds().right() <= within.width &&
                               a->bounds().bottom() <= within.height;
            EXPECT_TRUE(whole) << called(*a) << " is cut off";
            for (const ui::Control* b : controls) {
                if (a >= b || page != b->container()) continue;
                // The pages of a tab strip lie on it.
                if (dynamic_cast<const ui::TabStrip*>(a) || dynamic_cast<const ui::TabStrip*>(b)) continue;
                EXPECT_FALSE(overlap(a->bounds(), b->bounds())) << called(*a) << " and " << called(*b);
            }
        }
    });
}

TEST_P(EveryForm, ShowsItsCaptionsWhole) {
    constexpr ui::Twips ButtonBorder = 120, BoxMark = 300, FrameEdge = 240;
    onEachPage([&] {
        for (ui::Control* control : showing()) {
            auto* label = dynamic_cast<ui::Label*>(control);
            ui::Twips room = control->width();
            if (dynamic_cast<ui::CommandButton*>(control)) room -= ButtonBorder;
            if (dynamic_cast<ui::CheckBox*>(control)) room -= BoxMark;
            if (dynamic_cast<ui::Frame*>(control)) room -= FrameEdge;
            const std::string text = label ? label->caption() : control->accessText();
            const ui::Size needed = program_.platform.desktop.textSize(text, room, label && label->bold());
            EXPECT_LE(needed.width, room) << called(*control) << " \"" << text << "\"";
            EXPECT_LE(needed.height, control->height()) << called(*control) << " \"" << text << "\"";
        }
    });
}

TEST_P(EveryForm, BindsEscapeAndEnterAndFitsOnASmallScreen) {
    const bool dialog = form_->kind() == ui::Form::Kind::Dialog;
    for (ui::Control* control : form_->controls())
        EXPECT_TRUE(!dialog || !dynamic_cast<ui::CommandButton*>(control) || form_->defaultButton());
    form_->load();
    form_->pressEscape();
    EXPECT_EQ(form_->loaded(), !dialog);  // the main window is closed by its menu and its box
    EXPECT_LE(form_->width(), 640 * 15);
    EXPECT_LE(form_->height(), 480 * 15);
}

INSTANTIATE_TEST_SUITE_P(All, EveryForm, testing::Range(0, int{std::size(Forms)}),
                         [](const auto& tested) { return Forms[tested.param].first; });
