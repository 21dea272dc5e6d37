#include "ui/Hourglass.h"

#include <algorithm>

#include "ui/Desktop.h"

namespace ui {

Form& Hourglass::seen(Form& form) {
    const auto& forms = form.desktop().forms();
    const auto last = std::find_if(forms.rbegin(), forms.rend(), [](const Form* other) { return other->shown(); });
    return last == forms.rend() ? form : **last;
}

}  // namespace ui
