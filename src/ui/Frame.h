// A box with a caption around a group of controls.
#pragma once

#include <string>
#include <string_view>

#include "ui/Control.h"

namespace ui {

class Frame : public Control {
public:
    Frame(Parent parent, const char* name, Bounds bounds, std::string_view caption, int index = -1);
    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption);
    std::string accessText() const override { return caption_; }

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;

private:
    std::string caption_;
};

}  // namespace ui
