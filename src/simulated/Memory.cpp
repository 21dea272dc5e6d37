#include "simulated/Memory.h"

namespace simulated {

Memory::Block Memory::GlobalAlloc(std::size_t bytes) {
    if (watch.before("GlobalAlloc")) return 0;
    blocks_[++next_].resize(bytes);
    return next_;
}

// An empty block has nothing to lock.
std::uint8_t* Memory::GlobalLock(Block block) {
    if (watch.before("GlobalLock")) return nullptr;
    const auto found = blocks_.find(block);
    return found == blocks_.end() || found->second.empty() ? nullptr : found->second.data();
}

void Memory::GlobalUnlock(Block) {
    (void)watch.before("GlobalUnlock");
}

void Memory::GlobalFree(Block block) {
    (void)watch.before("GlobalFree");
    blocks_.erase(block);
}

}  // namespace simulated
