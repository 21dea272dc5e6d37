// A desktop without windows: messages go to the error stream, questions to whoever sits at the console.
#pragma once

#include "platform/Console.h"
#include "ui/Desktop.h"

namespace command {

class ConsoleDesktop : public ui::Desktop {
public:
    // `yes`: every question is answered so, without asking.
    ConsoleDesktop(platform::Console& console, bool yes) : console_(console), yes_(yes) {}

    // Messages shown and questions asked.
    int messages() const { return messages_; }

    // Asks whoever sits there; anything but "y" and "yes" is a no.
    bool confirmed(const std::string& question);

    // A question that nobody can answer is answered with No.
    ui::Answer messageBox(const std::string& text, const std::string& title, ui::MessageStyle style) override;

    // There are no forms.
    std::optional<std::string> openFile(const ui::OpenFileRequest&) override { return std::nullopt; }
    void beep() override {}
    void open(ui::Form&) override {}
    void runModal(ui::Form&, ui::Form*) override {}
    void closed(ui::Form&) override {}
    void run() override {}
    void doEvents() override {}
    int pixelsPerInch() const override { return 96; }
    ui::Size workArea() override { return {32767, 32767}; }
    ui::FrameSize frameSize(ui::Form::Kind, bool) override { return {}; }
    ui::Size textSize(const std::string&, ui::Twips, bool) override { return {}; }

private:
    platform::Console& console_;
    bool yes_;
    int messages_ = 0;
};

}  // namespace command
