// A text in which "&" is a letter like any other. It gets neither the mouse nor the focus, so it has no tool tip and no
// access key. Programs that read windows aloud name a box or a list by the label that was made before it.
#pragma once

#include <string>
#include <string_view>

#include "ui/ControlArray.h"

namespace ui {

class Label : public Control {
public:
    Label(Parent parent, const char* name, Bounds bounds, std::string_view caption, int index = -1);

    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption);
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

// Makes a caption, and gives the parent for what it names, which has to be made after it.
inline Parent captioned(ControlArray<Label>& captions, Parent parent, Bounds bounds, std::string_view caption) {
    captions.add(parent, bounds, caption);
    return parent;
}

}  // namespace ui
