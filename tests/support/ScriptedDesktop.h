// A desktop whose user is the test: what will be asked is expected in order, and every surprise fails the test.
//
//     desktop.expectMessage("no name");
//     desktop.expectForm<frmError>([](frmError& form) { form.cmdContinue.click(); });
//
// It stands before the simulated desktop or the real one; with the real one the script runs while the form's windows
// exist.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "simulated/Watch.h"
#include "ui/Desktop.h"

class ScriptedDesktop : public ui::Desktop {
public:
    explicit ScriptedDesktop(ui::Desktop& inner) : inner_(inner) {}
    int dots = 0;                              // to the inch; 0: as the screen has them
    ~ScriptedDesktop() override { settle(); }  // fails the test when something expected has not happened

    // By its name and parts in texts.txt, or its text. `meanwhile` runs while the message is open: another program's
    // chance to interfere.
    void expectMessage(const std::string& name, ui::Answer answer = ui::Answer::Ok,
                       std::function<void()> meanwhile = {});
    // Nothing: the user gives up. `start`: where the dialog is to begin; with most zones that is the browser's icons.
    void expectFile(std::optional<std::string> path, std::string start = "inetcpl.cpl");
    // The script uses the form and closes it. One that is left open is unloaded and fails the test.
    template <class F>
    void expectForm(std::function<void(F&)> script) {
        const auto fits = [](const ui::Form& form) { return dynamic_cast<const F*>(&form) != nullptr; };
        expected_.push_back({"form", fits, [script](ui::Form& form) { script(dynamic_cast<F&>(form)); }});
    }
    // The form that `open` brings up is used, and closed with Escape if it is still there.
    template <class F>
    void use(const std::function<void(F&)>& script, const std::function<void()>& open) {
        expectForm<F>([script](F& form) {
            script(form);
            if (form.loaded()) form.pressEscape();
        });
        open();
    }
    // From now on no surprise fails the test: the user reads it, which `told` remembers, says Ok or No, and closes it.
    // What is expected need not happen.
    bool patient = false;
    std::vector<std::string> told;
    const ui::Form* owner = nullptr;  // of the form that was opened last
    simulated::Watch watch;
    // Fails the test when something expected has not happened; forgets it then.
    void settle();

    // Runs each time the program lets pending events run: the user's chance to interfere.
    std::function<void()> onDoEvents;

    ui::Answer messageBox(const std::string& text, const std::string& title, ui::MessageStyle style) override;
    std::optional<std::string> openFile(const ui::OpenFileRequest& request) override;
    int beeps = 0;
    void beep() override { ++beeps; }
    void open(ui::Form& form) override;
    void runModal(ui::Form& form, ui::Form* above) override;
    void closed(ui::Form& form) override { inner_.closed(form); }
    void run() override { inner_.run(); }
    void doEvents() override;
    int pixelsPerInch() const override { return dots ? dots : inner_.pixelsPerInch(); }
    ui::Size workArea() override { return inner_.workArea(); }
    ui::FrameSize frameSize(ui::Form::Kind kind, bool menu) override { return inner_.frameSize(kind, menu); }
    ui::Size textSize(const std::string& text, ui::Twips wrap, bool bold) override {
        return inner_.textSize(text, wrap, bold);
    }

private:
    struct Expectation {
        std::string what;
        std::function<bool(const ui::Form&)> fits;
        std::function<void(ui::Form&)> script;
        std::string text = {};
        ui::Answer answer = ui::Answer::Ok;
        std::function<void()> meanwhile = {};
        std::optional<std::string> path = {};
    };
    // The next expectation when it is of the kind `what`; otherwise fails the test with `surprise`. A patient user's
    // must fit, too.
    std::optional<Expectation> next(const std::string& what, const std::string& surprise,
                                    const std::function<bool(const Expectation&)>& fits);

    ui::Desktop& inner_;
    std::deque<Expectation> expected_;
};
