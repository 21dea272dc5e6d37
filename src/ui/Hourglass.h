// The pointer is an hourglass over the form for as long as one of these lives. Over a form that is not shown yet there
// is no pointer: then it is an hourglass over the form shown last, which the user sees meanwhile.
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
