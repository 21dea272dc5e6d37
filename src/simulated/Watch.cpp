#include "simulated/Watch.h"

#include <algorithm>

namespace simulated {

using namespace platform;

std::optional<Result> Watch::before(const char* function) {
    if (pauses_ > 0 || (above && above->pauses_ > 0)) return std::nullopt;
    if (onCall) onCall(function);
    auto known = std::find_if(calls_.begin(), calls_.end(), [&](const auto& c) { return c.first == function; });
    if (known == calls_.end()) known = calls_.insert(known, {function, 0});
    ++known->second;
    std::optional<Result> answer = above ? above->before(function) : std::nullopt;
    if (failures_.empty()) return answer;
    for (const std::string_view key : {std::string_view(Any), std::string_view(function)}) {
        const auto failure = failures_.find(key);
        if (failure == failures_.end() || --failure->second.countdown > 0) continue;
        answer = failure->second.code;
        failures_.erase(failure);
        failed_ = true;
    }
    return answer;
}

void Watch::reset() {
    calls_.clear();
    failures_.clear();
    failed_ = false;
}

int Watch::calls() const {
    int sum = 0;
    for (const auto& [function, count] : calls_) sum += count;
    return sum;
}

int Watch::calls(const std::string& function) const {
    int sum = 0;
    for (const auto& [called, count] : calls_)
        if (called == function) sum += count;
    return sum;
}

}  // namespace simulated
