// A visible component: it has bounds, and can be shown, enabled and given the focus.
#pragma once

#include <memory>
#include <string>

#include "ui/Component.h"
#include "ui/Geometry.h"

namespace ui {

class Control;

// What a control is placed on: the form itself, or its container, a Frame or Image.
struct Parent {
    Parent(Form& parent) : form(parent) {}
    Parent(Control& parent);

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

    Control(Parent parent, const char* name, Bounds bounds, int index = -1);

    Control* container() const { return container_; }
    // Whether it is `other` or lies inside it, at any depth.
    bool isWithin(const Control& other) const;

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
    // Of a control that stands on the form itself: makes it higher, and moves what is below it.
    void stretch(Twips by);

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
    // Whether a user's entry counts: nobody clicks what is disabled or hidden, or anything while the form is busy.
    bool usable() const;

private:
    template <class... Verbs>
    void updatePeersWithin(Verbs... verbs);

    Control* container_;
    Bounds bounds_;
    bool visible_ = true;
    bool enabled_ = true;
    bool tabStop_ = false;
    std::string toolTip_;
    std::string tag_;
};

}  // namespace ui
