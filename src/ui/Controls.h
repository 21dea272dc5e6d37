// The simple controls: Label, Frame, TextBox, CheckBox, CommandButton, ComboBox, Image, PictureBox, ProgressBar,
// TabStrip, Timer, and ControlArray. ListView, TreeView, ImageList and Menu have headers of their own.
#pragma once

#include <cstdint>
#include <deque>
#include <vector>

#include "ui/Control.h"
#include "ui/Picture.h"

namespace ui {

// A text on the form or on the box it stands in, with "&" as it is. It is drawn there and has no window of its own:
// neither the mouse nor the focus finds it, so it has no tool tip and no access key.
class Label : public Control {
public:
    Label(Place place, std::string name, Bounds bounds, std::string caption, int index = -1);

    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    bool bold() const { return bold_; }
    Label& makeBold() {
        bold_ = true;
        return *this;
    }

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;

private:
    std::string caption_;
    bool bold_ = false;
};

// A box with a caption around a group of controls.
class Frame : public Control {
public:
    Frame(Place place, std::string name, Bounds bounds, std::string caption, int index = -1);
    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    std::string accessText() const override { return caption_; }

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;

private:
    std::string caption_;
};

class TextBox : public Control {
public:
    class Peer : public Control::Peer {
    public:
        virtual void applySelection() = 0;
        virtual void applyMaxLength() = 0;
    };
    TextBox(Place place, std::string name, Bounds bounds, int index = -1);

    const std::string& text() const { return text_; }
    void setText(std::string text);  // the caret goes to the start; longer than maxLength is kept, as the system does
    // Limits what the user can type, in bytes; 0 is no limit.
    int maxLength() const { return maxLength_; }
    void setMaxLength(int bytes);
    bool multiLine() const { return multiLine_; }
    void makeMultiLine() { multiLine_ = true; }

    int selectionStart() const { return selectionStart_; }
    int selectionLength() const { return selectionLength_; }
    void select(int start, int length);
    void selectAll() { select(0, static_cast<int>(text_.size())); }

    // The user's entries: typed text replaces the selection; the native control reports its whole text.
    void type(const std::string& typed);
    void userChangedText(std::string text, int selectionStart, int selectionLength);
    Event onChange;

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    std::string text_;
    int maxLength_ = 0;
    int selectionStart_ = 0, selectionLength_ = 0;
    bool multiLine_ = false;
};

class CheckBox : public Control {
public:
    class Peer : public Control::Peer {
    public:
        virtual void applyChecked() = 0;
    };
    CheckBox(Place place, std::string name, Bounds bounds, std::string caption, int index = -1);
    const std::string& caption() const { return caption_; }
    std::string accessText() const override { return caption_; }
    bool checked() const { return checked_; }
    void setChecked(bool checked);

    void click();  // the user's entry: toggles
    Event onClick;

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    std::string caption_;
    bool checked_ = false;
};

class CommandButton : public Control {
public:
    CommandButton(Place place, std::string name, Bounds bounds, std::string caption, int index = -1);
    const std::string& caption() const { return caption_; }
    std::string accessText() const override { return caption_; }

    void click();  // the user's entry
    Event onClick;

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;

private:
    std::string caption_;
};

// A drop-down list: one entry of a fixed set.
class ComboBox : public Control {
public:
    class Peer : public Control::Peer {
    public:
        virtual void applyItems() = 0;
        virtual void applyListIndex() = 0;
    };
    ComboBox(Place place, std::string name, Bounds bounds, int index = -1);

    const std::vector<std::string>& items() const { return items_; }
    void setItems(std::vector<std::string> items);
    int listIndex() const { return listIndex_; }  // from 0; -1 is none
    void setListIndex(int listIndex);
    std::string text() const;  // of the selected item

    void choose(int listIndex);  // the user's entry
    Event onClick;

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    std::vector<std::string> items_;
    int listIndex_ = -1;
};

// A picture on the form or on the box it stands in, drawn there like a label.
class Image : public Control {
public:
    class Peer : public Control::Peer {
    public:
        virtual void applyPicture() = 0;
    };
    Image(Place place, std::string name, Bounds bounds, int index = -1);

    const Picture& picture() const { return picture_; }
    void setPicture(Picture picture);  // drawn at (0, 0), 32 by 32 pixels for icons
    void clear() { setPicture({}); }

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    Picture picture_;
};

// An image with a window of its own: it can have a border, be clicked, and be a page that holds other controls.
class PictureBox : public Image {
public:
    enum class Border { None, Sunken };
    PictureBox(Place place, std::string name, Bounds bounds, Border border = Border::None, int index = -1);
    Border border() const { return border_; }

    void click();  // the user's entry; Enter and Space when the box is a tab stop
    Event onClick;

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;

private:
    Border border_;
};

class ProgressBar : public Control {
public:
    class Peer : public Control::Peer {
    public:
        virtual void applyProgress() = 0;
    };
    ProgressBar(Place place, std::string name, Bounds bounds, int index = -1);
    int maximum() const { return maximum_; }
    int value() const { return value_; }
    void setProgress(int value, int maximum);

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    int value_ = 0, maximum_ = 100;
};

class TabStrip : public Control {
public:
    class Peer : public Control::Peer {
    public:
        virtual void applyTabs() = 0;
        virtual void applySelected() = 0;
    };
    TabStrip(Place place, std::string name, Bounds bounds, std::vector<std::string> tabs, int index = -1);
    const std::vector<std::string>& tabs() const { return tabs_; }
    int selected() const { return selected_; }  // from 1
    void setSelected(int tab);

    void choose(int tab);  // the user's entry, from 1
    Event onClick;

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    std::vector<std::string> tabs_;
    int selected_ = 1;
};

// Ticks on the user-interface thread every `interval` milliseconds while enabled.
class Timer : public Component {
public:
    class Peer : public ui::Peer {
    public:
        virtual void applyTimer() = 0;
    };
    Timer(Form& form, std::string name, int interval);
    int interval() const { return interval_; }
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);

    void tick();  // the clock's entry
    Event onTimer;

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    int interval_;
    bool enabled_ = false;
};

// Controls of one name, told apart by an index from 0: `cmdZoneOption(2)`.
template <class C>
class ControlArray {
public:
    explicit ControlArray(std::string name) : name_(std::move(name)) {}

    template <class... Args>
    C& add(Place place, Bounds bounds, Args&&... args) {
        return controls_.emplace_back(place, name_, bounds, std::forward<Args>(args)..., size());
    }
    // For arrays that stand on the form from the last one down: each is made before the one below it.
    template <class... Args>
    C& addInFront(int index, Place place, Bounds bounds, Args&&... args) {
        return controls_.emplace_front(place, name_, bounds, std::forward<Args>(args)..., index);
    }
    C& operator()(int index) { return controls_.at(static_cast<std::size_t>(index)); }
    const C& operator()(int index) const { return controls_.at(static_cast<std::size_t>(index)); }
    int size() const { return static_cast<int>(controls_.size()); }
    auto begin() { return controls_.begin(); }
    auto end() { return controls_.end(); }

private:
    std::string name_;
    std::deque<C> controls_;
};

}  // namespace ui
