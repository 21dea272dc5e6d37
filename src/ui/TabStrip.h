#pragma once

#include <string>
#include <vector>

#include "ui/Control.h"

namespace ui {

class TabStrip : public Control {
public:
    class Peer : public Control::Peer {
    public:
        virtual void applyTabs() = 0;
        virtual void applySelected() = 0;
    };
    TabStrip(Parent parent, const char* name, Bounds bounds, std::vector<std::string> tabs, int index = -1);
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

}  // namespace ui
