#pragma once

#include <string>
#include <string_view>

#include "ui/Control.h"

namespace ui {

class CheckBox : public Control {
public:
    class Peer : public Control::Peer {
    public:
        virtual void applyChecked() = 0;
    };
    CheckBox(Parent parent, const char* name, Bounds bounds, std::string_view caption, int index = -1);
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

}  // namespace ui
