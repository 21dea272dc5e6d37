// Makes the peers of the system's windows. Each `make` stands in the file of the peer that it makes.
#pragma once

#include <vector>

#include "ui/PeerFactory.h"

namespace win32 {

class FormPeer;
class Screen;

class PeerFactory : public ui::PeerFactory {
public:
    // `forms`: the list in which every form's peer is for as long as it lives.
    PeerFactory(const Screen& screen, std::vector<FormPeer*>& forms) : screen_(screen), forms_(forms) {}

    std::unique_ptr<ui::Peer> make(ui::Form& form, const ui::Form* owner) override;
    std::unique_ptr<ui::Peer> make(ui::CheckBox&) override;
    std::unique_ptr<ui::Peer> make(ui::ComboBox&) override;
    std::unique_ptr<ui::Peer> make(ui::CommandButton&) override;
    std::unique_ptr<ui::Peer> make(ui::Frame&) override;
    std::unique_ptr<ui::Peer> make(ui::Image&) override;
    std::unique_ptr<ui::Peer> make(ui::ImageList&) override;
    std::unique_ptr<ui::Peer> make(ui::Label&) override;
    std::unique_ptr<ui::Peer> make(ui::ListView&) override;
    std::unique_ptr<ui::Peer> make(ui::Menu&) override;
    std::unique_ptr<ui::Peer> make(ui::PictureButton&) override;
    std::unique_ptr<ui::Peer> make(ui::ProgressBar&) override;
    std::unique_ptr<ui::Peer> make(ui::TabStrip&) override;
    std::unique_ptr<ui::Peer> make(ui::TextBox&) override;
    std::unique_ptr<ui::Peer> make(ui::Timer&) override;
    std::unique_ptr<ui::Peer> make(ui::TreeView&) override;

private:
    const Screen& screen_;
    std::vector<FormPeer*>& forms_;
};

}  // namespace win32
