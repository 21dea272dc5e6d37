// Which browser is installed. Answers are asked of the system each time; what fails answers false, 0 and "0.0.0".
#pragma once

#include <cstdint>
#include <string>

#include "platform/Platform.h"

class clsIEInfo {
public:
    explicit clsIEInfo(platform::Platform& platform) : platform_(platform) {}

    bool IsAvailable() const;         // registered as installed
    std::int32_t Version() const;     // major version
    std::string FullVersion() const;  // "major.minor.build"

private:
    platform::LibraryVersion ask() const;
    platform::Platform& platform_;
};
