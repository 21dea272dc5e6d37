// A window of the program: a tree of controls that can be built, filled and clicked without any native window.
//
// A form object is made, loaded (Form_Load runs once, before anything is shown), shown, and unloaded (Form_Unload
// runs, the window goes). Unloading inside an event handler is fine: the object lives on until its owner destroys it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/Component.h"
#include "ui/Geometry.h"
#include "ui/Menu.h"
#include "ui/WindowHook.h"

namespace ui {

class CommandButton;
class Control;
class Desktop;

enum class Pointer { Default, Hourglass };

// Keys that mean the same wherever the focus is: F5; Ctrl+Tab and Ctrl+Page Down, and the same backwards.
enum class FormKey { Refresh, NextPage, PreviousPage };

class Form : public PeerOwner {
public:
    enum class Kind {
        Main,    // sizable, with minimize and maximize boxes; closing it ends the program
        Dialog,  // of fixed size, with a close box; Esc closes it
    };
    class Peer : public ui::Peer {
    public:
        virtual void applyCaption() = 0;
        virtual void applySize() = 0;  // width() and height(), the whole window
        virtual void applyHook() = 0;
        virtual void applyPointer() = 0;
        virtual void applyBusy() = 0;
        virtual void applyDefaultButton() = 0;
        virtual void applyLines() = 0;     // their places are to be painted: called before and after a change
        virtual void applyUnloaded() = 0;  // hide now; the peer is destroyed soon, outside every handler
    };

    // `client`: the drawing area. The window's own size is that and the frame around it.
    Form(Desktop& desktop, Kind kind, const char* name, std::string_view caption, Size client);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form();

    Desktop& desktop() const { return desktop_; }
    Kind kind() const { return kind_; }
    std::string_view name() const { return name_; }

    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption);

    Size client() const { return client_; }
    Twips width() const;   // of the whole window
    Twips height() const;  // of the whole window
    // Never higher than the screen has room for.
    void setHeight(Twips height);
    // The user cannot make the drawing area narrower or lower than this.
    Size smallest() const { return smallest_; }
    void setSmallestHeight(Twips client) { smallest_.height = client; }

    // Where the window stands on the screen when it is not maximised. Without a width it has not been shown yet, and
    // will be shown in the middle.
    const Bounds& place() const { return place_; }
    bool maximized() const { return maximized_; }
    // Before it is shown. What would be off the screen is put back on it.
    void setPlace(Twips left, Twips top, Twips width);

    Menu& menu() { return menu_; }
    const Menu& menu() const { return menu_; }

    // Enter presses the default button when no other button has the focus; Esc presses the cancel button.
    void setDefaultButton(CommandButton& button);
    void setCancelButton(CommandButton& button) { cancelButton_ = &button; }
    CommandButton* defaultButton() const { return defaultButton_; }

    void setHook(WindowHook hook);  // an empty one removes it
    bool hooked() const { return static_cast<bool>(hook_); }
    // What the hook answers to a message; nothing when there is no hook or it passes the message on.
    std::optional<std::intptr_t> hookAnswer(const WindowMessage& message);

    Pointer pointer() const { return pointer_; }
    void setPointer(Pointer pointer);

    // While a form is busy neither the user nor the end of the session closes any, and it takes no input.
    bool busy() const { return busy_; }
    void setBusy(bool busy);

    const std::vector<Line>& lines() const { return lines_; }
    void setLines(std::vector<Line> lines);

    // Loading, showing, unloading.
    void load();
    bool loaded() const { return loaded_; }
    void show();                            // modeless; loads first when it has to
    void showModal(Form* owner = nullptr);  // returns when the form is unloaded; loads first when it has to
    bool shown() const { return shown_; }
    void unload();

    // The user's entries: Enter, Esc, another key, the close box, a drag of the window or of its border.
    void pressEnter();
    void pressEscape();
    bool pressKey(FormKey key);  // whether it means anything here
    void closeBox();
    void userResized(Size client);
    void userPlaced(const Bounds& place, bool maximized);

    // Every component in the order made, which is the tab order of the controls.
    const std::vector<Component*>& components() const { return components_; }
    std::vector<Control*> controls() const;
    Control* activeControl() const { return activeControl_; }

    // For the desktop.
    // Makes the form's peer and the components'. `owner`: the form above which it will stand, or null.
    void attach(PeerFactory& factory, const Form* owner);
    void detach();
    // Tells the form that its window is complete and visible, or gone. True raises onShown; in showModal that is
    // before it waits.
    void setShown(bool shown);
    Event onShown;

protected:
    virtual void Form_Load() {}
    virtual void Form_Unload() {}
    virtual void Form_Resize() {}
    virtual bool Form_KeyDown(FormKey) { return false; }

private:
    friend class Component;
    friend class Control;
    void add(Component& component) { components_.push_back(&component); }
    void remove(Component& component);

    Desktop& desktop_;
    Kind kind_;
    const char* name_;
    std::string caption_;
    Size client_;
    Size smallest_;
    Bounds place_;
    bool maximized_ = false;
    std::vector<Component*> components_;
    Menu menu_{*this};
    CommandButton* defaultButton_ = nullptr;
    CommandButton* cancelButton_ = nullptr;
    Control* activeControl_ = nullptr;
    WindowHook hook_;
    Pointer pointer_ = Pointer::Default;
    std::vector<Line> lines_;
    bool busy_ = false;
    bool loaded_ = false;
    bool shown_ = false;
};

}  // namespace ui
