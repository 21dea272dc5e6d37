// The parts of a form, visible or not: controls, timers, image lists, the menu.
//
// A component *is* its state: getters never ask the system. Where there is a native half, its peer, the component
// calls the peer's `apply...` verb after each change, and the peer reads what it needs from the component; the peer
// reports what the user does by calling the same entries that a test calls (`click()`, `type(...)`, `choose(i)`).
// Setting by program is silent; only the user's entries raise events. After raising an event touch nothing: the
// handler may have closed the form.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "ui/Handler.h"

namespace ui {

class Form;
class PeerFactory;

using Event = Handler<void()>;
template <class... Args>
void raise(const Handler<void(Args...)>& event, std::type_identity_t<Args>... args) {
    if (auto copy = event) copy(args...);  // a copy: the handler may destroy the event's owner
}

// Stores `value` in `variable`; tells whether that changed it.
template <class T, class V>
bool store(T& variable, V&& value) {
    if (variable == value) return false;
    variable = std::forward<V>(value);
    return true;
}

// The native half of a component. Destroying it destroys the native object.
class Peer {
public:
    virtual ~Peer() = default;
};

// Owns a peer, or none.
class PeerOwner {
public:
    bool attached() const { return peer_ != nullptr; }
    // The peer as the class that the factory made it.
    template <class P>
    P* peerAs() const {
        return static_cast<P*>(peer_.get());
    }

protected:
    ~PeerOwner() = default;
    void setPeer(std::unique_ptr<Peer> peer) { peer_ = std::move(peer); }
    // Calls one of the peer's verbs; does nothing while there is no peer.
    template <class P, class... Args>
    void updatePeer(void (P::*verb)(Args...), std::type_identity_t<Args>... args) const {
        if (peer_) (peerAs<P>()->*verb)(args...);
    }

private:
    std::unique_ptr<Peer> peer_;
};

class Component : public PeerOwner {
public:
    // `name` is a literal, here and in whatever else has one: there are hundreds, and none is ever changed.
    Component(Form& form, const char* name, int index);
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;
    virtual ~Component();

    Form& form() const { return form_; }
    std::string_view name() const { return name_; }  // as in the code: "cmdZoneOption"
    int index() const { return index_; }             // in a control array, or -1

    // Makes the peer and replays the whole state into it.
    void attach(PeerFactory& factory);
    // Loses the peer and nothing else.
    void detach() { setPeer(nullptr); }

protected:
    virtual std::unique_ptr<Peer> makePeer(PeerFactory& factory) = 0;
    virtual void replay() = 0;

private:
    Form& form_;
    const char* name_;
    int index_;
};

}  // namespace ui
