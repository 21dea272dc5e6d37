#include "simulated/Watch.h"

namespace simulated {

using namespace platform;

std::optional<Result> Watch::before(const char* function) {
    if (pauses_ > 0 || (above && above->pauses_ > 0)) return std::nullopt;
    if (onCall) onCall(function);
    const auto calls = calls_.find(std::string_view(function));
    ++(calls == calls_.end() ? calls_[function] : calls->second);
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
    const auto found = calls_.find(function);
    return found == calls_.end() ? 0 : found->second;
}

}  // namespace simulated
