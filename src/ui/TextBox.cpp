#include "ui/TextBox.h"

#include <algorithm>

#include "ui/PeerFactory.h"

namespace ui {

TextBox::TextBox(Parent parent, const char* name, Bounds bounds, int index) : Control(parent, name, bounds, index) {
    setTabStop(true);
}

void TextBox::setText(std::string text) {
    if (!store(text_, std::move(text))) return;
    selectionStart_ = selectionLength_ = 0;
    updatePeer(&Peer::applyText);
}

void TextBox::setMaxLength(int bytes) {
    if (store(maxLength_, bytes)) updatePeer(&Peer::applyMaxLength);
}

void TextBox::select(int start, int length) {
    const int size = static_cast<int>(text_.size());
    selectionStart_ = std::clamp(start, 0, size);
    selectionLength_ = std::clamp(length, 0, size - selectionStart_);
    updatePeer(&Peer::applySelection);
}

void TextBox::type(const std::string& typed) {
    if (!usable()) return;
    std::string text = text_;
    text.erase(static_cast<std::size_t>(selectionStart_), static_cast<std::size_t>(selectionLength_));
    std::string fits = typed;
    if (maxLength_ > 0) {
        const std::size_t room =
            text.size() < static_cast<std::size_t>(maxLength_) ? static_cast<std::size_t>(maxLength_) - text.size() : 0;
        fits.resize(std::min(fits.size(), room));
    }
    text.insert(static_cast<std::size_t>(selectionStart_), fits);
    const int caret = selectionStart_ + static_cast<int>(fits.size());
    text_ = std::move(text);
    selectionStart_ = caret;
    selectionLength_ = 0;
    updatePeer(&Peer::applyText);
    updatePeer(&Peer::applySelection);
}

void TextBox::userChangedText(std::string text, int selectionStart, int selectionLength) {
    selectionStart_ = selectionStart;
    selectionLength_ = selectionLength;
    text_ = std::move(text);
}

std::unique_ptr<ui::Peer> TextBox::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void TextBox::replay() {
    Control::replay();
    peerAs<Peer>()->applyMaxLength();
    peerAs<Peer>()->applySelection();
}

}  // namespace ui
