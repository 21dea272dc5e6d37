// The form is busy for as long as one of these lives, and its pointer an hourglass.
#pragma once

#include "ui/Hourglass.h"

namespace ui {

class Busy {
public:
    explicit Busy(Form& form) : hourglass_(form), form_(form) { form_.setBusy(true); }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
    ~Busy() { form_.setBusy(false); }

private:
    Hourglass hourglass_;
    Form& form_;
};

}  // namespace ui
