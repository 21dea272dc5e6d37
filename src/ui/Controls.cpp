#include "ui/Controls.h"

#include <algorithm>

#include "ui/Desktop.h"

namespace ui {

// Label ---------------------------------------------------------------------------------------------------------

Label::Label(Place place, std::string name, Bounds bounds, std::string caption, int index)
    : Control(place, std::move(name), bounds, index), caption_(std::move(caption)) {}

void Label::setCaption(std::string caption) {
    if (store(caption_, std::move(caption))) tellText();
}

std::unique_ptr<ui::Peer> Label::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

// Frame ---------------------------------------------------------------------------------------------------------

Frame::Frame(Place place, std::string name, Bounds bounds, std::string caption, int index)
    : Control(place, std::move(name), bounds, index), caption_(std::move(caption)) {}

void Frame::setCaption(std::string caption) {
    if (store(caption_, std::move(caption))) tellText();
}

std::unique_ptr<ui::Peer> Frame::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

// TextBox -------------------------------------------------------------------------------------------------------

TextBox::TextBox(Place place, std::string name, Bounds bounds, int index)
    : Control(place, std::move(name), bounds, index) {
    setTabStop(true);
}

void TextBox::setText(std::string text) {
    if (!store(text_, std::move(text))) return;
    selectionStart_ = selectionLength_ = 0;
    tellText();
}

void TextBox::setMaxLength(int bytes) {
    if (store(maxLength_, bytes))
        if (auto* p = peerAs<Peer>()) p->applyMaxLength();
}

void TextBox::select(int start, int length) {
    const int size = static_cast<int>(text_.size());
    selectionStart_ = std::clamp(start, 0, size);
    selectionLength_ = std::clamp(length, 0, size - selectionStart_);
    if (auto* p = peerAs<Peer>()) p->applySelection();
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
    const bool changed = text != text_;
    text_ = std::move(text);
    selectionStart_ = caret;
    selectionLength_ = 0;
    tellText();
    if (auto* p = peerAs<Peer>()) p->applySelection();
    if (changed) raise(onChange);
}

void TextBox::userChangedText(std::string text, int selectionStart, int selectionLength) {
    selectionStart_ = selectionStart;
    selectionLength_ = selectionLength;
    if (store(text_, std::move(text))) raise(onChange);
}

std::unique_ptr<ui::Peer> TextBox::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void TextBox::replay() {
    Control::replay();
    peerAs<Peer>()->applyMaxLength();
    peerAs<Peer>()->applySelection();
}

// CheckBox ------------------------------------------------------------------------------------------------------

CheckBox::CheckBox(Place place, std::string name, Bounds bounds, std::string caption, int index)
    : Control(place, std::move(name), bounds, index), caption_(std::move(caption)) {
    setTabStop(true);
}

void CheckBox::setChecked(bool checked) {
    if (store(checked_, checked))
        if (auto* p = peerAs<Peer>()) p->applyChecked();
}

void CheckBox::click() {
    if (!usable()) return;
    setChecked(!checked_);
    raise(onClick);
}

std::unique_ptr<ui::Peer> CheckBox::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void CheckBox::replay() {
    Control::replay();
    peerAs<Peer>()->applyChecked();
}

// CommandButton -------------------------------------------------------------------------------------------------

CommandButton::CommandButton(Place place, std::string name, Bounds bounds, std::string caption, int index)
    : Control(place, std::move(name), bounds, index), caption_(std::move(caption)) {
    setTabStop(true);
}

void CommandButton::click() {
    if (usable()) raise(onClick);
}

std::unique_ptr<ui::Peer> CommandButton::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

// ComboBox ------------------------------------------------------------------------------------------------------

ComboBox::ComboBox(Place place, std::string name, Bounds bounds, int index)
    : Control(place, std::move(name), bounds, index) {
    setTabStop(true);
}

void ComboBox::setItems(std::vector<std::string> items) {
    items_ = std::move(items);
    listIndex_ = -1;
    if (auto* p = peerAs<Peer>()) p->applyItems();
}

void ComboBox::setListIndex(int listIndex) {
    if (listIndex < -1 || listIndex >= static_cast<int>(items_.size())) return;
    if (store(listIndex_, listIndex))
        if (auto* p = peerAs<Peer>()) p->applyListIndex();
}

std::string ComboBox::text() const {
    return listIndex_ < 0 ? std::string() : items_[static_cast<std::size_t>(listIndex_)];
}

void ComboBox::choose(int listIndex) {
    if (!usable()) return;
    setListIndex(listIndex);
    raise(onClick);
}

std::unique_ptr<ui::Peer> ComboBox::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void ComboBox::replay() {
    Control::replay();
    peerAs<Peer>()->applyItems();
    peerAs<Peer>()->applyListIndex();
}

// Image and PictureBox ------------------------------------------------------------------------------------------

Image::Image(Place place, std::string name, Bounds bounds, int index)
    : Control(place, std::move(name), bounds, index) {}

void Image::setPicture(Picture picture) {
    if (store(picture_, std::move(picture)))
        if (auto* p = peerAs<Peer>()) p->applyPicture();
}

std::unique_ptr<ui::Peer> Image::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void Image::replay() {
    Control::replay();
    peerAs<Peer>()->applyPicture();
}

PictureBox::PictureBox(Place place, std::string name, Bounds bounds, Border border, int index)
    : Image(place, std::move(name), bounds, index), border_(border) {}

void PictureBox::click() {
    if (usable()) raise(onClick);
}

std::unique_ptr<ui::Peer> PictureBox::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

// ProgressBar ---------------------------------------------------------------------------------------------------

ProgressBar::ProgressBar(Place place, std::string name, Bounds bounds, int index)
    : Control(place, std::move(name), bounds, index) {}

void ProgressBar::setProgress(int value, int maximum) {
    maximum_ = std::max(1, maximum);
    value_ = std::clamp(value, 0, maximum_);
    if (auto* p = peerAs<Peer>()) p->applyProgress();
}

std::unique_ptr<ui::Peer> ProgressBar::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void ProgressBar::replay() {
    Control::replay();
    peerAs<Peer>()->applyProgress();
}

// TabStrip ------------------------------------------------------------------------------------------------------

TabStrip::TabStrip(Place place, std::string name, Bounds bounds, std::vector<std::string> tabs, int index)
    : Control(place, std::move(name), bounds, index), tabs_(std::move(tabs)) {
    setTabStop(true);
}

void TabStrip::setSelected(int tab) {
    if (tab < 1 || tab > static_cast<int>(tabs_.size())) return;
    if (store(selected_, tab))
        if (auto* p = peerAs<Peer>()) p->applySelected();
}

void TabStrip::choose(int tab) {
    if (!usable()) return;
    setSelected(tab);
    raise(onClick);
}

std::unique_ptr<ui::Peer> TabStrip::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void TabStrip::replay() {
    Control::replay();
    peerAs<Peer>()->applyTabs();
    peerAs<Peer>()->applySelected();
}

// Timer ---------------------------------------------------------------------------------------------------------

Timer::Timer(Form& form, std::string name, int interval) : Component(form, std::move(name), -1), interval_(interval) {}

void Timer::setEnabled(bool enabled) {
    if (store(enabled_, enabled))
        if (auto* p = peerAs<Peer>()) p->applyTimer();
}

void Timer::tick() {
    if (enabled_) raise(onTimer);
}

std::unique_ptr<ui::Peer> Timer::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void Timer::replay() {
    peerAs<Peer>()->applyTimer();
}

}  // namespace ui
