#pragma once

#include <string>
#include <string_view>

#include "ui/Control.h"

namespace ui {

class CommandButton : public Control {
public:
    CommandButton(Parent parent, const char* name, Bounds bounds, std::string_view caption, int index = -1);
    const std::string& caption() const { return caption_; }
    std::string accessText() const override { return caption_; }

    void click();  // the user's entry
    Event onClick;

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;

private:
    std::string caption_;
};

}  // namespace ui
