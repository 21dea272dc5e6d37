// Makes the pointer an hourglass over the form for as long as the object lives. A form that is not shown yet has no
// pointer over it: then the hourglass appears over the form that was shown last, which the user still sees.
#pragma once

#include "ui/Form.h"

namespace ui {

class Hourglass {
public:
    explicit Hourglass(Form& form) : form_(form.shown() ? form : seen(form)) { form_.setPointer(Pointer::Hourglass); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass() { form_.setPointer(Pointer::Default); }

private:
    static Form& seen(Form& form);

    Form& form_;
};

}  // namespace ui
