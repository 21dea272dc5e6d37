// Counts what is asked of the services of a system in memory, and refuses it when a test wants to see what happens
// then.
//
//     system.registry.watch.failOn("RegSetValueExA", 2, platform::AccessDenied);
//     ...
//     EXPECT_LE(system.registry.watch.calls(), 60);
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/Registry.h"

namespace simulated {

class Watch {
public:
    // Every watched function asks here first, and answers the code instead of doing its work.
    std::optional<platform::Result> before(const char* function);
    // Asked too, with each call: the watch of several services together.
    Watch* above = nullptr;
    std::function<void(const char* function)> onCall;

    int calls() const;
    int calls(const std::string& function) const;
    // The n-th call from now on (1 is the next), of any function or of one, answers `code`.
    void failOn(int n, platform::Result code) { failures_[Any] = {n, code}; }
    void failOn(const std::string& function, int n, platform::Result code) { failures_[function] = {n, code}; }
    // Whether a failure that was ordered has happened.
    bool failed() const { return failed_; }
    void reset();

    // While there is one, calls are neither counted nor made to fail: those of a test, or of a service to another.
    class Pause {
    public:
        explicit Pause(Watch& watch) : watch_(watch) { ++watch_.pauses_; }
        ~Pause() { --watch_.pauses_; }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        Watch& watch_;
    };

private:
    struct Failure {
        int countdown = 0;
        platform::Result code = platform::Success;
    };
    static constexpr const char* Any = "";
    std::vector<std::pair<const char*, int>> calls_;  // of each function, whose name stands where its literal does
    std::map<std::string, Failure, std::less<>> failures_;  // by function
    int pauses_ = 0;
    bool failed_ = false;
};

}  // namespace simulated
