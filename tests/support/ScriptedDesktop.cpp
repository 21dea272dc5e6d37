#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

#include <new>

#include "support/texts.h"
#include "ui/copiedText.h"

void ScriptedDesktop::settle() {
    for (const Expectation& left : expected_)
        if (!patient) ADD_FAILURE() << "expected, but did not come: " << left.what << " " << left.text;
    expected_.clear();
}

void ScriptedDesktop::expectMessage(const std::string& name, ui::Answer answer, std::function<void()> meanwhile) {
    expected_.push_back({"message", {}, {}, texts::message(name), answer, std::move(meanwhile)});
}

void ScriptedDesktop::expectFile(std::optional<std::string> path, std::string start) {
    expected_.push_back({"file", {}, {}, std::move(start), ui::Answer::Ok, {}, std::move(path)});
}

std::optional<ScriptedDesktop::Expectation> ScriptedDesktop::next(const std::string& what, const std::string& surprise,
                                                                  const std::function<bool(const Expectation&)>& fits) {
    const bool expected = !expected_.empty() && expected_.front().what == what;
    if (!expected || (patient && !fits(expected_.front()))) {
        if (patient) told.push_back(surprise);
        if (!patient) ADD_FAILURE() << "nobody expected " << surprise;
        return std::nullopt;
    }
    Expectation first = std::move(expected_.front());
    expected_.pop_front();
    return first;
}

ui::Answer ScriptedDesktop::messageBox(const std::string& text, const std::string& title, ui::MessageStyle style) {
    using Style = ui::MessageStyle;
    EXPECT_EQ(title, "Tavimor");
    EXPECT_EQ(style, text.ends_with('?') ? Style::ExclamationYesNo : Style::Exclamation) << text;
    EXPECT_TRUE(texts::isMessage(text)) << "not in texts.txt: " << text;
    if (watch.before("messageBox")) return {};
    const auto expected = next("message", text, [&](const auto& e) { return e.text == text; });
    if (!expected) return style == Style::ExclamationYesNo ? ui::Answer::No : ui::Answer::Ok;
    EXPECT_EQ(text, expected->text);
    if (expected->meanwhile) expected->meanwhile();
    return expected->answer;
}

std::optional<std::string> ScriptedDesktop::openFile(const ui::OpenFileRequest& request) {
    EXPECT_EQ(request.title + "|" + request.filter + "|" + request.defaultExtension, texts::message("open file"));
    if (watch.before("openFile")) return std::nullopt;
    const auto expected = next("file", "the file-open dialog " + request.title, [](auto&) { return true; });
    if (!expected) return std::nullopt;
    if (!patient) {
        EXPECT_EQ(request.start, expected->text);
    }
    return expected->path;
}

namespace {

// What an unexpected form says, so that the failure tells why an error dialog came up.
std::string describe(const ui::Form& form) {
    return "the form " + std::string(form.name()) + ": " + ui::copiedText(form);
}

}  // namespace

// A system without room for another window.
void ScriptedDesktop::open(ui::Form& form) {
    if (watch.before("open")) throw std::bad_alloc();
    inner_.open(form);
}

void ScriptedDesktop::runModal(ui::Form& form, ui::Form* above) {
    if (watch.before("runModal")) throw std::bad_alloc();
    owner = above;
    const auto expected = next("form", describe(form), [&](const auto& e) { return e.fits(form); });
    form.onShown = [&] {
        form.onShown = nullptr;
        if (!expected) {
            form.unload();
            return;
        }
        if (expected->fits(form))
            expected->script(form);
        else
            ADD_FAILURE() << "another form was expected than " << describe(form);
        if (form.loaded()) {
            if (!patient) ADD_FAILURE() << "left open: " << describe(form);
            form.unload();
        }
    };
    inner_.runModal(form, above);
}

void ScriptedDesktop::doEvents() {
    inner_.doEvents();
    if (onDoEvents) onDoEvents();
}
