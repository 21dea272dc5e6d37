#pragma once

#include <string>

#include "ui/Control.h"

namespace ui {

class TextBox : public Control {
public:
    class Peer : public Control::Peer {
    public:
        virtual void applySelection() = 0;
        virtual void applyMaxLength() = 0;
    };
    TextBox(Parent parent, const char* name, Bounds bounds, int index = -1);

    const std::string& text() const { return text_; }
    // Moves the caret to the start. Like the system, keeps a text whole that is longer than maxLength.
    void setText(std::string text);
    // Limits what the user can type, in bytes; 0 is no limit.
    int maxLength() const { return maxLength_; }
    void setMaxLength(int bytes);

    int selectionStart() const { return selectionStart_; }
    int selectionLength() const { return selectionLength_; }
    void select(int start, int length);
    void selectAll() { select(0, static_cast<int>(text_.size())); }

    // The user's entries: typed text replaces the selection; the native control reports its whole text.
    void type(const std::string& typed);
    void userChangedText(std::string text, int selectionStart, int selectionLength);

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    std::string text_;
    int maxLength_ = 0;
    int selectionStart_ = 0, selectionLength_ = 0;
};

}  // namespace ui
