// Walks every form of the program, page by page, and checks what a user of keyboard, mouse and a small screen relies
// on.
#include <cctype>
#include <set>

#include "backup/frmBackup.h"
#include "backup/frmRestore.h"
#include "errors/frmError.h"
#include "mail/frmOESecurity.h"
#include "support/User.h"
#include "support/texts.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/Menu.h"
#include "ui/PictureButton.h"
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
         return std::make_unique<frmIconSelector>(program.platform, "shell32.dll", target, nullptr);
     }},
};

struct EveryForm : User, testing::WithParamInterface<int> {
    EveryForm() { system.seedZones(); }

    // Runs `check` on the form as it is first seen, and on each page of its tab strip.
    void onEachPage(const std::function<void()>& check) {
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
    void expectWhole();
    std::vector<ui::Control*> showing() const {
        std::vector<ui::Control*> all;
        for (ui::Control* control : form_->controls())
            if (control->showing()) all.push_back(control);
        return all;
    }

    FormPointer form_ = Forms[GetParam()].second(program);
};

template <class... Kinds>
bool isOneOf(const ui::Control& control) {
    return (dynamic_cast<const Kinds*>(&control) || ...);
}

char accessKey(const std::string& caption) {
    if (caption.empty()) return 0;
    for (auto at = caption.find('&'); at < caption.size() - 1; at = caption.find('&', at + 2))
        if (caption[at + 1] != '&') return static_cast<char>(std::tolower(static_cast<unsigned char>(caption[at + 1])));
    return 0;
}

void expectUniqueKeys(const std::vector<std::string>& captions) {
    std::map<char, std::string> taken;
    for (const std::string& caption : captions)
        if (const char key = accessKey(caption); key && !taken.emplace(key, caption).second)
            ADD_FAILURE() << "\"" << caption << "\" and \"" << taken[key] << "\"";
}

std::vector<std::string> captionsOf(const std::deque<ui::MenuItem>& items) {
    std::vector<std::string> captions;
    for (const ui::MenuItem& item : items) captions.push_back(item.caption());
    return captions;
}

template <class Named>
std::string called(const Named& control) {
    return std::string(control.name()) + (control.index() < 0 ? "" : "(" + std::to_string(control.index()) + ")");
}

// What a control says of itself: a label its caption, which has no access key.
std::string captionOf(const ui::Control& control) {
    const auto* label = dynamic_cast<const ui::Label*>(&control);
    return label ? label->caption() : control.accessText();
}

std::string joined(const std::vector<std::string>& parts) {
    std::string all;
    for (const std::string& part : parts) all += (all.empty() ? "" : "|") + part;
    return all;
}

void EveryForm::expectWhole() {
    onEachPage([&] {
        const auto controls = showing();
        for (const ui::Control* a : controls) {
            const bool givesWay = a->name() == "zzzpicLogo" && form_->client().height < 5000;
            const ui::Control* page = a->container();
            const ui::Size within = page ? ui::Size{page->width(), page->height()} : form_->client();
            const ui::Twips line = page && isOneOf<ui::Frame>(*page) ? 60 : 0;  // painted over what stands there
            const ui::Bounds at = a->bounds();
            const bool whole =
                at.left >= line && at.top >= 0 && at.right() <= within.width - line && at.bottom() <= within.height;
            EXPECT_TRUE(whole || givesWay) << called(*a) << " is cut off";
            const std::string text = captionOf(*a);
            const ui::Twips edge = isOneOf<ui::Label>(*a) ? 0 : isOneOf<ui::CommandButton>(*a) ? 120 : 300;
            // A system without the program's font has a wider one.
            const ui::Twips room = (at.width - edge) * 4 / 5;
            const auto* label = dynamic_cast<const ui::Label*>(a);
            const ui::Size needed = desktop.textSize(text, room, label && label->bold());
            EXPECT_TRUE(text.empty() || (needed.width <= room && needed.height <= at.height))
                << called(*a) << " \"" << text << "\"";
            for (const ui::Control* b : controls) {
                // The pages of a tab strip lie on it.
                if (a >= b || page != b->container() || isOneOf<ui::TabStrip>(*a) || isOneOf<ui::TabStrip>(*b))
                    continue;
                const ui::Bounds other = b->bounds();
                EXPECT_TRUE(at.left >= other.right() || other.left >= at.right() || at.top >= other.bottom() ||
                            other.top >= at.bottom())
                    << called(*a) << " and " << called(*b);
            }
        }
    });
}

}  // namespace

TEST_P(EveryForm, HoldsTheTextsThatWereDecidedForIt) {
    std::set<std::string> held;
    const auto hold = [&](const std::string& holder, const char* property, const std::string& text) {
        if (!text.empty())
            held.insert(std::string(form_->name()) + " " + holder + " " + property + " \"" + text + "\"");
    };
    const std::function<void(std::string, const std::deque<ui::MenuItem>&)> holdMenu = [&](auto menu, auto& items) {
        std::vector<std::string> names;
        for (const ui::MenuItem& item : items) {
            names.push_back(called(item));
            hold(names.back(), "menu", item.caption());
            holdMenu(names.back(), item.items());
        }
        hold(menu, "items", joined(names));
    };
    form_->load();
    hold("form", "caption", form_->caption());
    holdMenu("bar", form_->menu().items());
    for (const ui::Component* component : form_->components())
        if (const auto* timer = dynamic_cast<const ui::Timer*>(component))
            hold(called(*timer), "interval", std::to_string(timer->interval()));
    for (const ui::Control* control : form_->controls()) {
        const std::string name = called(*control);
        hold(name, "caption", captionOf(*control));
        hold(name, "tooltip", control->toolTip());
        hold(name, "tag", control->tag());
        if (const auto* list = dynamic_cast<const ui::ListView*>(control)) hold(name, "heading", list->columnHeading());
        if (const auto* box = dynamic_cast<const ui::ComboBox*>(control)) hold(name, "items", joined(box->items()));
        if (const auto* strip = dynamic_cast<const ui::TabStrip*>(control)) hold(name, "tabs", joined(strip->tabs()));
        if (const auto* image = dynamic_cast<const ui::PictureButton*>(control)) hold(name, "text", image->caption());
    }
    const std::set<std::string> decided = texts::linesOf(std::string(form_->name()));
    for (const std::string& line : decided) EXPECT_TRUE(held.contains(line)) << "nobody holds: " << line;
    for (const std::string& line : held) EXPECT_TRUE(decided.contains(line)) << "not in texts.txt: " << line;
    form_->unload();
}

TEST(FormWalk, HasALineForEveryFormThereIs) {
    std::set<std::string> walked;
    for (const auto& form : Forms) walked.insert(form.first);
    EXPECT_EQ(walked, (std::set<std::string>{TAVIMOR_FORMS})) << "files of src/ that are called frm*.h";
}

TEST_P(EveryForm, IsReachedWholeWithTabAndAccessKeysAndNamedByLabels) {
    for (const ui::MenuItem& menu : form_->menu().items()) expectUniqueKeys(captionsOf(menu.items()));
    onEachPage([&] {
        std::vector<std::string> captions = captionsOf(form_->menu().items());
        int stops = 0;
        const ui::Control* before = nullptr;
        for (const ui::Control* control : showing()) {
            captions.push_back(control->accessText());
            const bool operable = isOneOf<ui::PictureButton>(*control) ||
                                  !isOneOf<ui::Label, ui::Image, ui::Frame, ui::ProgressBar>(*control);
            EXPECT_EQ(control->tabStop(), operable) << called(*control);
            stops += control->tabStop();
            // What shows nothing that tells what it is for: programs that read windows aloud take the label before it.
            const bool needsLabel = isOneOf<ui::TextBox, ui::ComboBox>(*control);
            EXPECT_TRUE(!needsLabel || (before && isOneOf<ui::Label>(*before))) << called(*control);
            before = control;
        }
        EXPECT_GT(stops, 0);
        expectUniqueKeys(captions);
    });
}

TEST_P(EveryForm, OverlapsNothingAndShowsAllWhole) {
    expectWhole();
    if (!system.inMemory()) return;
    // 640 by 480 pixels with 120 to the inch.
    system.screen.screen = {7680, 5760};
    form_ = Forms[GetParam()].second(program);
    form_->load();
    EXPECT_LE(form_->width(), 7680);
    EXPECT_LE(form_->height(), 5340) << "which the task bar leaves";
    expectWhole();
}

TEST_P(EveryForm, BindsEscapeAndEnter) {
    const bool dialog = form_->kind() == ui::Form::Kind::Dialog;
    for (ui::Control* control : form_->controls())
        EXPECT_TRUE(!dialog || !isOneOf<ui::CommandButton>(*control) || form_->defaultButton());
    form_->load();
    form_->pressEscape();
    EXPECT_EQ(form_->loaded(), !dialog);  // the main window is closed by its menu and its box
}

INSTANTIATE_TEST_SUITE_P(All, EveryForm, testing::Range(0, int{std::size(Forms)}),
                         [](const auto& tested) { return Forms[tested.param].first; });
