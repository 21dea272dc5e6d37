#include "simulated/Memory.h"

namespace simulated {

int Memory::locks(Block block) const {
    const auto found = blocks_.find(block);
    return found == blocks_.end() ? 0 : found->second.locks;
}

Memory::Block Memory::GlobalAlloc(std::size_t bytes) {
    if (bytes > capacity) return 0;
    capacity -= bytes;
    blocks_[++next_].bytes.resize(bytes);
    return next_;
}

// An empty block has nothing to lock.
std::uint8_t* Memory::GlobalLock(Block block) {
    const auto found = blocks_.find(block);
    if (found == blocks_.end() || found->second.bytes.empty()) return nullptr;
    ++found->second.locks;
    return found->second.bytes.data();
}

void Memory::GlobalUnlock(Block block) {
    const auto found = blocks_.find(block);
    if (found != blocks_.end() && found->second.locks > 0) --found->second.locks;
}

void Memory::GlobalFree(Block block) {
    const auto found = blocks_.find(block);
    if (found == blocks_.end()) return;
    capacity += found->second.bytes.size();
    blocks_.erase(found);
}

}  // namespace simulated
