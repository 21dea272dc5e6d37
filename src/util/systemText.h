// The system's result codes in words.
#pragma once

#include <string>

#include "platform/Platform.h"

namespace util {

// The system's own text for a code; one with the code itself when it has none. A full sentence either way.
std::string systemText(platform::Platform& platform, platform::Result code);

}  // namespace util
