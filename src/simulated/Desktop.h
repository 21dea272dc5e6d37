// A desktop without a screen: a form counts as shown once it has asked to be, and only tests use it.
#pragma once

#include "ui/Desktop.h"

namespace simulated {

class Desktop : public ui::Desktop {
public:
    int dots = 96;                         // to the inch
    ui::Size screen{1024 * 15, 768 * 15};  // with the task bar

    ui::Answer messageBox(const std::string& text, const std::string& title, ui::MessageStyle style) override;
    std::optional<std::string> openFile(const ui::OpenFileRequest& request) override;

    void beep() override {}
    void open(ui::Form& form) override;
    // A test uses the form in Form::onShown. Nobody could close it later, so it is unloaded then if it is still loaded.
    void runModal(ui::Form& form, ui::Form* owner) override;
    void closed(ui::Form& form) override;
    void run() override {}
    void doEvents() override {}

    // The frame of a plain Windows 98 window at 96 DPI.
    int pixelsPerInch() const override { return dots; }
    ui::Size workArea() override { return {screen.width, screen.height - 28 * 15}; }
    ui::FrameSize frameSize(ui::Form::Kind kind, bool menu) override;
    // By the character widths of the program's font, MS Sans Serif 8 point at 96 DPI.
    ui::Size textSize(const std::string& text, ui::Twips wrap, bool bold) override;
};

}  // namespace simulated
