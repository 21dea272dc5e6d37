// Forms as windows of the system: their peers, the message loops, modal forms, message boxes.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "ui/Desktop.h"

struct tagMSG;

namespace win32 {

class FormPeer;
class Screen;

class Desktop : public ui::Desktop, private ui::PeerFactory {
public:
    Desktop();
    ~Desktop() override;

    ui::Answer messageBox(const std::string& text, const std::string& title, ui::MessageStyle style) override;
    std::optional<std::string> openFile(const ui::OpenFileRequest& request) override;

    void open(ui::Form& form) override;
    void runModal(ui::Form& form, ui::Form* owner) override;
    void closed(ui::Form& form) override;
    // A handler's exception ends a loop: it comes out of `run`, `runModal` or `doEvents`.
    void run() override;
    void doEvents() override;

    ui::FrameSize frameSize(ui::Form::Kind kind, bool menu) override;
    ui::Size textSize(const std::string& text, ui::Twips wrap, bool bold) override;

    // The system's window of a form or control, 0 while it has none.
    static std::uintptr_t nativeHandle(const ui::Form& form);
    static std::uintptr_t nativeHandle(const ui::Control& control);

private:
    class Modal;

    std::unique_ptr<ui::Form::Peer> make(ui::Form&) override;
    std::unique_ptr<ui::Control::Peer> make(ui::Label&) override;
    std::unique_ptr<ui::Control::Peer> make(ui::Frame&) override;
    std::unique_ptr<ui::TextBox::Peer> make(ui::TextBox&) override;
    std::unique_ptr<ui::CheckBox::Peer> make(ui::CheckBox&) override;
    std::unique_ptr<ui::Control::Peer> make(ui::CommandButton&) override;
    std::unique_ptr<ui::ComboBox::Peer> make(ui::ComboBox&) override;
    std::unique_ptr<ui::Image::Peer> make(ui::Image&) override;
    std::unique_ptr<ui::Image::Peer> make(ui::PictureBox&) override;
    std::unique_ptr<ui::ProgressBar::Peer> make(ui::ProgressBar&) override;
    std::unique_ptr<ui::TabStrip::Peer> make(ui::TabStrip&) override;
    std::unique_ptr<ui::Timer::Peer> make(ui::Timer&) override;
    std::unique_ptr<ui::ImageList::Peer> make(ui::ImageList&) override;
    std::unique_ptr<ui::ListView::Peer> make(ui::ListView&) override;
    std::unique_ptr<ui::TreeView::Peer> make(ui::TreeView&) override;
    std::unique_ptr<ui::Menu::Peer> make(ui::Menu&) override;

    FormPeer& attach(ui::Form& form, FormPeer* owner);
    FormPeer* activePeer() const;
    bool anyOpen() const;
    void step();
    void takeDown();
    void dispatch(tagMSG& message);

    std::unique_ptr<Screen> screen_;
    std::vector<FormPeer*> peers_;   // in the order in which they were made
    FormPeer* nextOwner_ = nullptr;  // of the form peer to be made
    int modalLoops_ = 0;             // running
};

}  // namespace win32
