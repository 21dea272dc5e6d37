// Forms as windows of the system: their peers, the message loops, modal forms, message boxes.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "ui/Desktop.h"
#include "win32/PeerFactory.h"

struct HWND__;
struct tagMSG;

namespace win32 {

class FormPeer;
class Screen;

class Desktop : public ui::Desktop {
public:
    Desktop();
    explicit Desktop(int pixelsPerInch);
    ~Desktop() override;

    ui::Answer messageBox(const std::string& text, const std::string& title, ui::MessageStyle style) override;
    std::optional<std::string> openFile(const ui::OpenFileRequest& request) override;

    void beep() override;
    void open(ui::Form& form) override;
    void runModal(ui::Form& form, ui::Form* owner) override;
    void closed(ui::Form& form) override;
    // A handler's exception ends a loop: it comes out of `run`, `runModal` or `doEvents`.
    void run() override;
    void doEvents() override;

    int pixelsPerInch() const override;
    ui::Size workArea() override;
    ui::FrameSize frameSize(ui::Form::Kind kind, bool menu) override;
    ui::Size textSize(const std::string& text, ui::Twips wrap, bool bold) override;

    // The system's window of a form or control, 0 while it has none.
    static std::uintptr_t nativeHandle(const ui::Form& form);
    static std::uintptr_t nativeHandle(const ui::Control& control);

private:
    class Modal;

    FormPeer& attach(ui::Form& form, const ui::Form* owner);
    // The form whose window is active; else the one made last, null when there is none.
    ui::Form* activeForm() const;
    HWND__* activeWindow() const;
    bool anyOpen() const;
    void step();
    void destroyUnloaded();
    void dispatch(tagMSG& message);

    std::unique_ptr<Screen> screen_;
    std::vector<FormPeer*> peers_;  // in the order in which they were made
    PeerFactory factory_;
    int modalLoops_ = 0;  // running
};

}  // namespace win32
