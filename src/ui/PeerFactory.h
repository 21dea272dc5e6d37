// Makes the native half of each kind of component.
#pragma once

#include <memory>

namespace ui {

class CheckBox;
class ComboBox;
class CommandButton;
class Form;
class Frame;
class Image;
class ImageList;
class Label;
class ListView;
class Menu;
class Peer;
class PictureButton;
class ProgressBar;
class TabStrip;
class TextBox;
class Timer;
class TreeView;

// The result is of the Peer class that the component, or else its base, declares: a TextBox::Peer for a TextBox. The
// form's peer is made first, and a container's before those of the controls in it.
class PeerFactory {
public:
    virtual ~PeerFactory() = default;
    // `owner`: the form above which this one will stand, or null.
    virtual std::unique_ptr<Peer> make(Form& form, const Form* owner) = 0;
    virtual std::unique_ptr<Peer> make(CheckBox&) = 0;
    virtual std::unique_ptr<Peer> make(ComboBox&) = 0;
    virtual std::unique_ptr<Peer> make(CommandButton&) = 0;
    virtual std::unique_ptr<Peer> make(Frame&) = 0;
    virtual std::unique_ptr<Peer> make(Image&) = 0;
    virtual std::unique_ptr<Peer> make(ImageList&) = 0;
    virtual std::unique_ptr<Peer> make(Label&) = 0;
    virtual std::unique_ptr<Peer> make(ListView&) = 0;
    virtual std::unique_ptr<Peer> make(Menu&) = 0;
    virtual std::unique_ptr<Peer> make(PictureButton&) = 0;
    virtual std::unique_ptr<Peer> make(ProgressBar&) = 0;
    virtual std::unique_ptr<Peer> make(TabStrip&) = 0;
    virtual std::unique_ptr<Peer> make(TextBox&) = 0;
    virtual std::unique_ptr<Peer> make(Timer&) = 0;
    virtual std::unique_ptr<Peer> make(TreeView&) = 0;
};

}  // namespace ui
