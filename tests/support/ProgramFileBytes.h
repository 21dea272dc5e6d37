// A program file that holds nothing but resources, as the real system writes them; none of them may be empty.
#pragma once

#include "platform/Registry.h"
#include "simulated/Modules.h"

// Text names should be upper case, in which the system looks for them.
platform::Bytes programFileBytes(const simulated::ProgramFile& program);
