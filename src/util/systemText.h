// The system's result codes in words.
#pragma once

#include <string>

#include "platform/Platform.h"

namespace util {

// The system's own text for a code; one with the code itself when it has none. A full sentence either way. Where the
// system leaves room for a name ("%1 is not a valid Win32 application."), it is that of `subject`.
std::string systemText(platform::Platform& platform, platform::Result code, const std::string& subject);
// The same when the system has been asked already: `text` is what it answered, or empty.
std::string systemText(const std::string& text, platform::Result code, const std::string& subject);

}  // namespace util
