// The system's global memory, in movable blocks.
#pragma once

#include "platform/Modules.h"

namespace win32 {

class Memory : public platform::Memory {
public:
    Block GlobalAlloc(std::size_t bytes) override;
    std::uint8_t* GlobalLock(Block block) override;
    void GlobalUnlock(Block block) override;
    void GlobalFree(Block block) override;
};

}  // namespace win32
