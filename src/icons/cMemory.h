// One block of global memory, for a buffer handed to the system. Unlocked and freed with the object.
#pragma once

#include <cstdint>
#include <span>

#include "platform/Modules.h"

class cMemory {
public:
    // Zeroed and locked. Throws util::Error when there is not enough memory.
    cMemory(platform::Memory& memory, std::size_t bytes);
    ~cMemory() { FreeMemory(); }
    cMemory(const cMemory&) = delete;
    cMemory& operator=(const cMemory&) = delete;

    // Empty once unlocked.
    std::span<std::uint8_t> Bytes() const { return bytes_; }
    void UnlockMemory();
    void FreeMemory();

private:
    platform::Memory& memory_;
    platform::Memory::Block block_;
    std::span<std::uint8_t> bytes_;
};
