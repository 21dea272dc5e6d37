#include "editing/cCommonDialog.h"

bool cCommonDialog::ShowOpen() {
    auto chosen = desktop_.openFile(request_);
    if (!chosen) return false;
    fileName_ = std::move(*chosen);
    return true;
}
