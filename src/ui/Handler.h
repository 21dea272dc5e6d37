// What an event calls.
#pragma once

#include <cstddef>
#include <new>
#include <type_traits>
#include <utility>

namespace ui {

template <class Signature>
class Handler;

// A function object that captures little: a pointer or two, an index. It is copied as its bytes, so each of the
// program's many handlers costs the code of its call alone; std::function would add that of copying it, and its type's
// name.
template <class Result, class... Args>
class Handler<Result(Args...)> {
public:
    Handler() = default;
    Handler(std::nullptr_t) {}
    template <class Function>
    requires(!std::is_same_v<std::remove_cvref_t<Function>, Handler> &&
             std::is_invocable_r_v<Result, Function&, Args...>) Handler(Function function) {
        static_assert(sizeof(Function) <= sizeof captured_ && std::is_trivially_copyable_v<Function>,
                      "captures too much: let it refer to a member or to the form");
        new (captured_) Function(function);
        call_ = [](void* captured, Args... args) -> Result {
            return (*static_cast<Function*>(captured))(std::forward<Args>(args)...);
        };
    }

    explicit operator bool() const { return call_ != nullptr; }
    Result operator()(Args... args) { return call_(captured_, std::forward<Args>(args)...); }

private:
    Result (*call_)(void* captured, Args...) = nullptr;
    alignas(void*) unsigned char captured_[6 * sizeof(void*)] = {};
};

}  // namespace ui
