#include "ui/copiedText.h"

#include "ui/Form.h"
#include "ui/Label.h"

namespace ui {

std::string copiedText(const Form& form) {
    std::string all;
    for (const Control* control : form.controls()) {
        const auto* label = dynamic_cast<const Label*>(control);
        if (!label || !label->showing() || label->caption().empty()) continue;
        const std::string& text = label->caption();
        const std::size_t end = text.find_last_not_of(' ') + 1;
        const bool caption = end > 0 && text[end - 1] == ':';
        all.append(text, 0, end).append(caption ? " " : "\r\n");
    }
    return all;
}

}  // namespace ui
