// Runs every procedure of the program: its name stands on the trace while it runs, and its errors are trapped.
//
// An exception that reaches the trap is reported; the procedure then returns a default result, and its name STAYS on
// the trace: later stack dumps show such stale names. Expected outcomes (a missing key, refused input) are values,
// never exceptions.
#pragma once

#include <type_traits>
#include <utility>

namespace util {

// Runs `step(context)` as the procedure `name`: the one place that traces and traps. The template below hands it every
// body as a pointer, so that the code of the trap exists once and not once for each procedure.
void runProcedure(const char* name, void (*step)(void* context), void* context);

// `name` lives as long as the program: "frmMain.FillListView".
template <class Body>
auto procedure(const char* name, Body&& body) -> std::invoke_result_t<Body&> {
    using Result = std::invoke_result_t<Body&>;
    using Function = std::remove_reference_t<Body>;
    if constexpr (std::is_void_v<Result>) {
        const auto step = [](void* context) { (*static_cast<Function*>(context))(); };
        runProcedure(name, step, const_cast<std::remove_const_t<Function>*>(&body));
    } else {
        struct Call {
            Function& body;
            Result result{};
        } call{body};
        const auto step = [](void* context) {
            auto& running = *static_cast<Call*>(context);
            running.result = running.body();
        };
        runProcedure(name, step, &call);
        return std::move(call.result);
    }
}

}  // namespace util

using util::procedure;
