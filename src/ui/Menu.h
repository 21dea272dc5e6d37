// A form's menu bar: items within items.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>

#include "ui/Component.h"

namespace ui {

class Menu;

class MenuItem {
public:
    MenuItem(Menu& menu, const char* name, std::string_view caption, int index)
        : menu_(menu), name_(name), caption_(caption), index_(index) {}
    MenuItem(const MenuItem&) = delete;
    MenuItem& operator=(const MenuItem&) = delete;

    std::string_view name() const { return name_; }
    int index() const { return index_; }  // in a control array, or -1
    bool separator() const { return caption_ == "-"; }

    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption);
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    const std::string& tag() const { return tag_; }
    void setTag(std::string tag) { tag_ = std::move(tag); }

    MenuItem& add(const char* name, std::string_view caption, int index = -1);
    const std::deque<MenuItem>& items() const { return items_; }
    std::deque<MenuItem>& items() { return items_; }

    void click();  // the user's entry; nothing happens on a disabled item
    Event onClick;

private:
    Menu& menu_;
    const char* name_;
    std::string caption_, tag_;
    int index_;
    bool enabled_ = true;
    std::deque<MenuItem> items_;
};

class Menu : public Component {
public:
    class Peer : public ui::Peer {
    public:
        virtual void applyMenu() = 0;  // items were added or renamed: build it again
        virtual void applyEnabled(const MenuItem&) = 0;
    };
    explicit Menu(Form& form) : Component(form, "menu", -1) {}

    MenuItem& add(const char* name, std::string_view caption);
    const std::deque<MenuItem>& items() const { return items_; }
    std::deque<MenuItem>& items() { return items_; }
    bool empty() const { return items_.empty(); }

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    friend class MenuItem;
    void changed();
    void changedEnabled(const MenuItem& item);

    std::deque<MenuItem> items_;
};

}  // namespace ui
