#include "icons/cMemory.h"

#include "util/Error.h"

cMemory::cMemory(platform::Memory& memory, std::size_t bytes) : memory_(memory), block_(memory.GlobalAlloc(bytes)) {
    if (std::uint8_t* start = block_ ? memory_.GlobalLock(block_) : nullptr) {
        bytes_ = {start, bytes};
        return;
    }
    FreeMemory();
    throw util::Error(util::NumberOutOfMemory, "cMemory", "Out of memory.");
}

void cMemory::UnlockMemory() {
    if (!bytes_.data()) return;
    memory_.GlobalUnlock(block_);
    bytes_ = {};
}

void cMemory::FreeMemory() {
    UnlockMemory();
    if (block_) memory_.GlobalFree(block_);
    block_ = 0;
}
