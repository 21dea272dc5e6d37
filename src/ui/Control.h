// The base of everything that stands on a form.
//
// A component *is* its state: getters never ask the system. Where there is a native half, its peer, the component
// tells it after each change with an `apply...` verb, and the peer reads what it needs from the component; the peer
// reports what the user does by calling the same entries that a test calls (`click()`, `type(...)`, `choose(i)`).
// Setting by program is silent; only the user's entries raise events. After raising an event touch nothing: the
// handler may have closed the form.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include "ui/Geometry.h"

namespace ui {

class Control;
class Form;
class PeerFactory;

using Event = std::function<void()>;
template <class... Args>
void raise(const std::function<void(Args...)>& event, std::type_identity_t<Args>... args) {
    if (auto copy = event) copy(args...);  // a copy: the handler may destroy the event's owner
}

// Stores `value` in `place`; tells whether that changed it.
template <class T, class V>
bool store(T& place, V&& value) {
    if (place == value) return false;
    place = std::forward<V>(value);
    return true;
}

// The native half of a component. Destroying it destroys the native object.
class Peer {
public:
    virtual ~Peer() = default;
};

class Component {
public:
    Component(Form& form, std::string name, int index);
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;
    virtual ~Component();

    Form& form() const { return form_; }
    const std::string& name() const { return name_; }  // as in the code: "cmdZoneOption"
    int index() const { return index_; }               // place in a control array, or -1

    // Makes the peer and replays the whole state into it.
    void attach(PeerFactory& factory);
    // Loses the peer and nothing else.
    void detach() { peer_.reset(); }
    bool attached() const { return peer_ != nullptr; }

    template <class P>
    P* peerAs() const {
        return static_cast<P*>(peer_.get());
    }

protected:
    virtual std::unique_ptr<Peer> makePeer(PeerFactory& factory) = 0;
    virtual void replay() = 0;

private:
    Form& form_;
    std::string name_;
    int index_;
    std::unique_ptr<Peer> peer_;
};

// Where a control stands: on the form itself or in a Frame or PictureBox.
struct Place {
    Place(Form& onForm) : form(onForm) {}
    Place(Control& inside);

    Form& form;
    Control* container = nullptr;
};

class Control : public Component {
public:
    class Peer : public ui::Peer {
    public:
        virtual void applyBounds() = 0;   // absoluteBounds()
        virtual void applyShowing() = 0;  // showing()
        virtual void applyEnabled() = 0;
        virtual void applyText() = 0;  // caption or text, where the control has one
        virtual void applyFocus() = 0;
        virtual void applyToolTip() = 0;
    };

    Control(Place place, std::string name, Bounds bounds, int index = -1);

    Control* container() const { return container_; }

    // Relative to the container.
    const Bounds& bounds() const { return bounds_; }
    void setBounds(const Bounds& bounds);
    Twips left() const { return bounds_.left; }
    Twips top() const { return bounds_.top; }
    Twips width() const { return bounds_.width; }
    Twips height() const { return bounds_.height; }
    void setLeft(Twips left) { setBounds({left, bounds_.top, bounds_.width, bounds_.height}); }
    void setTop(Twips top) { setBounds({bounds_.left, top, bounds_.width, bounds_.height}); }
    void setWidth(Twips width) { setBounds({bounds_.left, bounds_.top, width, bounds_.height}); }
    void setHeight(Twips height) { setBounds({bounds_.left, bounds_.top, bounds_.width, height}); }
    // Relative to the form.
    Bounds absoluteBounds() const;

    bool visible() const { return visible_; }
    void setVisible(bool visible);
    // Visible, with every container visible and none of them moved off the form's left edge: what a user can see
    // and Tab can reach.
    bool showing() const;

    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);

    // Part of the tab ring. Controls take part in the order in which they were made.
    bool tabStop() const { return tabStop_; }
    void setTabStop(bool tabStop) { tabStop_ = tabStop; }

    const std::string& toolTip() const { return toolTip_; }
    void setToolTip(std::string text);

    const std::string& tag() const { return tag_; }
    void setTag(std::string tag) { tag_ = std::move(tag); }

    // Text with an access key marked "&", "" where there is none to show.
    virtual std::string accessText() const { return {}; }

    // Puts the keyboard focus here, when the control can take it, and raises onGotFocus.
    void setFocus();
    bool focused() const;
    bool acceptsFocus() const { return tabStop_ && enabled_ && showing(); }
    // The user's entry: the focus came here by mouse or Tab.
    void gotFocus();
    Event onGotFocus;

protected:
    void replay() override;
    Peer* peer() const { return peerAs<Peer>(); }
    void tellText() {
        if (auto* p = peer()) p->applyText();
    }
    // Whether a user's entry counts: nobody clicks what is disabled or hidden.
    bool usable() const { return enabled_ && showing(); }

private:
    void tellShowing();

    Control* container_;
    Bounds bounds_;
    bool visible_ = true;
    bool enabled_ = true;
    bool tabStop_ = false;
    std::string toolTip_;
    std::string tag_;
};

}  // namespace ui
