// The peers of the controls, one function each. The form's peer comes first: the others stand on its window.
#pragma once

#include "ui/Desktop.h"

namespace win32 {

std::unique_ptr<ui::Control::Peer> makePeer(ui::Label&);
std::unique_ptr<ui::Control::Peer> makePeer(ui::Frame&);
std::unique_ptr<ui::TextBox::Peer> makePeer(ui::TextBox&);
std::unique_ptr<ui::CheckBox::Peer> makePeer(ui::CheckBox&);
std::unique_ptr<ui::Control::Peer> makePeer(ui::CommandButton&);
std::unique_ptr<ui::ComboBox::Peer> makePeer(ui::ComboBox&);
std::unique_ptr<ui::Image::Peer> makePeer(ui::Image&);
std::unique_ptr<ui::Image::Peer> makePeer(ui::PictureBox&);
std::unique_ptr<ui::ProgressBar::Peer> makePeer(ui::ProgressBar&);
std::unique_ptr<ui::TabStrip::Peer> makePeer(ui::TabStrip&);
std::unique_ptr<ui::ImageList::Peer> makePeer(ui::ImageList&);
std::unique_ptr<ui::ListView::Peer> makePeer(ui::ListView&);
std::unique_ptr<ui::TreeView::Peer> makePeer(ui::TreeView&);

}  // namespace win32
