// A drop-down list: one entry of a fixed set.
#pragma once

#include <string>
#include <vector>

#include "ui/Control.h"

namespace ui {

class ComboBox : public Control {
public:
    class Peer : public Control::Peer {
    public:
        virtual void applyItems() = 0;
        virtual void applyListIndex() = 0;
    };
    ComboBox(Parent parent, const char* name, Bounds bounds, int index = -1);

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

}  // namespace ui
