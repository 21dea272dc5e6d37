// What the program tells and asks the user in message boxes, all titled with its name.
#pragma once

#include <string>

#include "ui/Desktop.h"

namespace platform {
struct Platform;
}

namespace errors {

// An exclamation and an OK button.
void tell(platform::Platform& platform, const std::string& text);
// An exclamation, Yes and No. Neither when the system could not ask.
ui::Answer ask(platform::Platform& platform, const std::string& question);

}  // namespace errors
