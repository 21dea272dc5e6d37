// The system's result codes in words.
#pragma once

#include <string>

#include "platform/Platform.h"

namespace util {

// The system's own text for a code, or a text with the code when it has none. A full sentence either way. `subject`
// takes the place of "%1" in texts such as "%1 is not a valid Win32 application.".
std::string systemText(platform::Platform& platform, platform::Result code, const std::string& subject);
// The same when the system has been asked already: `text` is what it answered, or empty.
std::string systemText(const std::string& text, platform::Result code, const std::string& subject);

}  // namespace util
