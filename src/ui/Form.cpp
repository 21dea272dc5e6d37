#include "ui/Form.h"

#include <algorithm>

#include "ui/CommandButton.h"
#include "ui/Desktop.h"
#include "ui/PeerFactory.h"

namespace ui {

Form::Form(Desktop& desktop, Kind kind, const char* name, std::string_view caption, Size client)
    : desktop_(desktop), kind_(kind), name_(name), caption_(caption), client_(client), smallest_{client.width, 0} {}

Form::~Form() {
    if (loaded_) {
        // Destroyed without having been unloaded, for instance because the program is being ended at once.
        desktop_.formUnloaded(*this);
        desktop_.closed(*this);
    }
    detach();
}

void Form::remove(Component& component) {
    std::erase(components_, &component);
    if (activeControl_ == &component) activeControl_ = nullptr;
}

void Form::setCaption(std::string_view caption) {
    if (store(caption_, caption)) updatePeer(&Peer::applyCaption);
}

Twips Form::width() const {
    return client_.width + desktop_.frameSize(kind_, !menu_.empty()).width;
}

Twips Form::height() const {
    return client_.height + desktop_.frameSize(kind_, !menu_.empty()).height;
}

void Form::setHeight(Twips height) {
    height = std::min(height, desktop_.workArea().height);
    const Twips client = std::max(0, height - desktop_.frameSize(kind_, !menu_.empty()).height);
    if (!store(client_.height, client)) return;
    updatePeer(&Peer::applySize);
    Form_Resize();
}

void Form::setPlace(Twips left, Twips top, Twips width) {
    width = std::min(width, desktop_.workArea().width);
    place_ = {left, top, width, height()};
    userResized({std::max(smallest_.width, width - desktop_.frameSize(kind_, !menu_.empty()).width), client_.height});
}

void Form::setHook(WindowHook hook) {
    hook_ = hook;
    updatePeer(&Peer::applyHook);
}

std::optional<std::intptr_t> Form::hookAnswer(const WindowMessage& message) {
    if (!hook_) return std::nullopt;
    return WindowHook(hook_)(message);  // a copy: the hook may take itself away
}

void Form::setPointer(Pointer pointer) {
    if (store(pointer_, pointer)) updatePeer(&Peer::applyPointer);
}

void Form::setBusy(bool busy) {
    if (store(busy_, busy)) updatePeer(&Peer::applyBusy);
}

void Form::setDefaultButton(CommandButton& button) {
    if (store(defaultButton_, &button)) updatePeer(&Peer::applyDefaultButton);
}

void Form::setLines(std::vector<Line> lines) {
    if (lines == lines_) return;
    updatePeer(&Peer::applyLines);
    lines_ = std::move(lines);
    updatePeer(&Peer::applyLines);
}

void Form::load() {
    if (loaded_) return;
    loaded_ = true;
    desktop_.formLoaded(*this);
    setHeight(height());  // on a small screen lists and trees give way
    Form_Load();
}

void Form::show() {
    load();
    if (loaded_ && !shown_) desktop_.open(*this);
}

void Form::showModal(Form* owner) {
    load();
    if (loaded_ && !shown_) desktop_.runModal(*this, owner);
}

void Form::unload() {
    if (!loaded_) return;
    loaded_ = false;  // first: Form_Unload may unload all forms, this one among them
    desktop_.formUnloaded(*this);
    Form_Unload();
    updatePeer(&Peer::applyUnloaded);
    desktop_.closed(*this);
}

void Form::setShown(bool shown) {
    if (store(shown_, shown) && shown) raise(onShown);
}

bool Form::pressKey(FormKey key) {
    return !busy_ && Form_KeyDown(key);
}

void Form::closeBox() {
    if (!desktop_.busy()) unload();
}

void Form::pressEnter() {
    if (defaultButton_ && !busy_) defaultButton_->click();
}

void Form::pressEscape() {
    if (busy_) return;
    if (cancelButton_) {
        cancelButton_->click();
    } else if (kind_ == Kind::Dialog) {
        closeBox();
    }
}

void Form::userResized(Size client) {
    if (store(client_, client)) Form_Resize();
}

void Form::userPlaced(const Bounds& place, bool maximized) {
    if (!maximized) place_ = place;
    maximized_ = maximized;
}

std::vector<Control*> Form::controls() const {
    std::vector<Control*> all;
    for (Component* component : components_)
        if (auto* control = dynamic_cast<Control*>(component)) all.push_back(control);
    return all;
}

// The menu first: it is part of the window's size. Containers are older than what is in them.
void Form::attach(PeerFactory& factory, const Form* owner) {
    try {
        setPeer(factory.make(*this, owner));
        for (Component* component : components_) component->attach(factory);
        auto* peer = peerAs<Peer>();
        peer->applyCaption();
        peer->applySize();
        peer->applyLines();
        peer->applyPointer();
        peer->applyBusy();
        peer->applyDefaultButton();
        peer->applyHook();
    } catch (...) {
        detach();  // a form with only some of its controls is of no use
        throw;
    }
}

void Form::detach() {
    for (Component* component : components_) component->detach();
    setPeer(nullptr);
    shown_ = false;
}

}  // namespace ui
