// The objects that live from start to end.
#pragma once

#include "forms/Context.h"

namespace app {

// While it lives, errors are reported to the user.
struct Application : forms::Context {
    explicit Application(platform::Platform& platform);
    ~Application();
};

}  // namespace app
