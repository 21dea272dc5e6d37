#include "simulated/System.h"

#include "simulated/Names.h"

namespace simulated {

using namespace platform;

// What is not set stays as it is written, per cent signs included.
std::string System::ExpandEnvironmentStringsA(const std::string& text) {
    if (watch.before("ExpandEnvironmentStringsA")) return text;
    std::string expanded;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text[at] == '%' ? text.find('%', at + 1) : std::string::npos;
        const auto variable = end == std::string::npos ? environment.end() : [&] {
            const std::string wanted = text.substr(at + 1, end - at - 1);
            return std::ranges::find_if(environment, [&](const auto& entry) { return same(entry.first, wanted); });
        }();
        if (variable == environment.end()) {
            expanded.push_back(text[at++]);
            continue;
        }
        expanded += variable->second;
        at = end + 1;
    }
    return expanded;
}

Result Browser::DllGetVersion(LibraryVersion& told) {
    const Result code = watch.before("DllGetVersion").value_or(answer);
    told = code == Success ? version : LibraryVersion{};
    return code;
}

void Launcher::endAll() {
    for (Started& process : started) process.running = false;
}

Result Launcher::start(const std::string& program, const std::string& arguments, Process& process) {
    process = 0;
    started.push_back({program, arguments});
    if (const auto code = watch.before("start")) return *code;
    process = started.size();
    open.insert(process);
    if (onStart) onStart(started.back());
    return Success;
}

bool Launcher::running(Process process) {
    return process > 0 && process <= started.size() && started[process - 1].running;
}

void Launcher::close(Process process) {
    open.erase(process);
}

}  // namespace simulated
