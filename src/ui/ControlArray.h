// Controls of one name, told apart by an index from 0: `cmdZoneOption(2)`.
#pragma once

#include <deque>
#include <string>

#include "ui/Control.h"

namespace ui {

template <class C>
class ControlArray {
public:
    explicit ControlArray(const char* name) : name_(name) {}

    template <class... Args>
    C& add(Parent parent, Bounds bounds, Args&&... args) {
        return controls_.emplace_back(parent, name_, bounds, std::forward<Args>(args)..., size());
    }
    // For arrays whose last element is the topmost on the form: elements are made from the top down, for the tab order.
    template <class... Args>
    C& addInFront(int index, Parent parent, Bounds bounds, Args&&... args) {
        return controls_.emplace_front(parent, name_, bounds, std::forward<Args>(args)..., index);
    }
    C& operator()(int index) { return controls_.at(static_cast<std::size_t>(index)); }
    const C& operator()(int index) const { return controls_.at(static_cast<std::size_t>(index)); }
    int size() const { return static_cast<int>(controls_.size()); }
    auto begin() { return controls_.begin(); }
    auto end() { return controls_.end(); }

private:
    const char* name_;
    std::deque<C> controls_;
};

}  // namespace ui
