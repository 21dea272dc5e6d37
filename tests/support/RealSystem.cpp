#include "support/RealSystem.h"

#ifndef _WIN32
std::unique_ptr<RealSystem> RealSystem::make() {
    return nullptr;
}
#endif
