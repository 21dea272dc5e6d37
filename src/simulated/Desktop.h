// A desktop without a screen: forms are shown when they say so, and nobody uses them but a test.
#pragma once

#include "ui/Desktop.h"

namespace simulated {

class Desktop : public ui::Desktop {
public:
    ui::Answer messageBox(const std::string& text, const std::string& title, ui::MessageStyle style) override;
    std::optional<std::string> openFile(const ui::OpenFileRequest& request) override;

    void open(ui::Form& form) override;
    // What happens to the form happens while it is being shown (Form::onShown): nobody could close it later, so one
    // that is then still loaded is unloaded.
    void runModal(ui::Form& form, ui::Form* owner) override;
    void closed(ui::Form& form) override;
    void run() override {}
    void doEvents() override {}

    // The frame of a plain Windows 98 window at 96 DPI.
    ui::FrameSize frameSize(ui::Form::Kind kind, bool menu) override;
    // By the character widths of the program's font, MS Sans Serif 8 point at 96 DPI.
    ui::Size textSize(const std::string& text, ui::Twips wrap, bool bold) override;
};

}  // namespace simulated
