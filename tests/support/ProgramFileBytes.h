// A program file that holds nothing but resources.
#pragma once

#include "platform/bytes.h"
#include "simulated/Modules.h"

// Text names should be upper case, in which the system looks for them.
platform::Bytes programFileBytes(const simulated::ProgramFile& program);
