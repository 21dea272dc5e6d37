// What Ctrl+C copies of a form.
#pragma once

#include <string>

namespace ui {

class Form;

// The labels that the form shows, a line each; what a caption names follows it on its line.
std::string copiedText(const Form& form);

}  // namespace ui
