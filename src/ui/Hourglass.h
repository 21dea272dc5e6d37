// The pointer is an hourglass over the form for as long as one of these lives.
#pragma once

#include "ui/Form.h"

namespace ui {

class Hourglass {
public:
    explicit Hourglass(Form& form) : form_(form) { form_.setPointer(Pointer::Hourglass); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass() { form_.setPointer(Pointer::Default); }

private:
    Form& form_;
};

}  // namespace ui
