// A function object that is called while it is passed, and not kept.
#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace util {

template <class Signature>
class FunctionRef;

// Two pointers. std::function would add to each use the code of copying and destroying what it holds.
template <class Result, class... Args>
class FunctionRef<Result(Args...)> {
public:
    FunctionRef() = default;  // calls nothing; only its truth may be asked
    // The function object outlives this, which a temporary in a call's arguments does.
    template <class Function>
    requires(!std::is_same_v<std::remove_cvref_t<Function>, FunctionRef> &&
             std::is_invocable_r_v<Result, Function&, Args...>) FunctionRef(Function&& function)
        : object_(const_cast<void*>(static_cast<const volatile void*>(std::addressof(function)))),
          call_([](void* object, Args... args) -> Result {
              return (*static_cast<std::remove_reference_t<Function>*>(object))(std::forward<Args>(args)...);
          }) {}

    explicit operator bool() const { return call_ != nullptr; }
    Result operator()(Args... args) const { return call_(object_, std::forward<Args>(args)...); }

private:
    void* object_ = nullptr;
    Result (*call_)(void* object, Args...) = nullptr;
};

}  // namespace util
