// A text in which "&" is a letter like any other. It is windowless and drawn on the form: it gets neither the mouse nor
// the focus, so it has no tool tip and no access key.
#pragma once

#include <string>

#include "ui/Control.h"

namespace ui {

class Label : public Control {
public:
    Label(Parent parent, std::string name, Bounds bounds, std::string caption, int index = -1);

    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    // One line, which ends in "..." when it is cut off. Otherwise the text is wrapped.
    bool oneLine() const { return oneLine_; }
    Label& makeOneLine() {
        oneLine_ = true;
        return *this;
    }
    bool bold() const { return bold_; }
    Label& makeBold() {
        bold_ = true;
        return *this;
    }

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;

private:
    std::string caption_;
    bool bold_ = false;
    bool oneLine_ = false;
};

}  // namespace ui
