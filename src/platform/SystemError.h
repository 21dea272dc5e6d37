// Thrown when the system refuses what a procedure cannot go on without, such as a window.
#pragma once

#include <stdexcept>
#include <string>

#include "platform/Registry.h"

namespace platform {

class SystemError : public std::runtime_error {
public:
    // `text`: what the system says of the code.
    SystemError(Result code, const std::string& text) : std::runtime_error(text), code_(code) {}
    Result code() const { return code_; }

private:
    Result code_;
};

}  // namespace platform
