// Global memory, counted.
#pragma once

#include <map>
#include <vector>

#include "platform/Modules.h"

namespace simulated {

class Memory : public platform::Memory {
public:
    // Bytes that are still available.
    std::size_t capacity = std::size_t{1} << 30;
    std::size_t blocks() const { return blocks_.size(); }
    int locks(Block block) const;

    Block GlobalAlloc(std::size_t bytes) override;
    std::uint8_t* GlobalLock(Block block) override;
    void GlobalUnlock(Block block) override;
    void GlobalFree(Block block) override;

private:
    struct Allocation {
        std::vector<std::uint8_t> bytes;
        int locks = 0;
    };
    std::map<Block, Allocation> blocks_;
    Block next_ = 0;
};

}  // namespace simulated
