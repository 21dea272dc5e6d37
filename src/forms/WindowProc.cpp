#include "forms/WindowProc.h"

#include "util/trace.h"

namespace basMain {

void Hook(ui::Form& form) {
    form.setHook(WindowProc);
}

void Unhook(ui::Form& form) {
    form.setHook({});
}

std::optional<std::intptr_t> WindowProc(const ui::WindowMessage& message) {
    basErrors::TracePush("basMain.WindowProc");
    // A swallowed drag leaves the name on the trace: a later stack dump tells that somebody tried.
    if (message.message == ui::WmNotify && message.notification == ui::LvnBeginDrag) return 1;
    basErrors::TracePop();
    return std::nullopt;
}

}  // namespace basMain
