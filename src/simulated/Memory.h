// Global memory, counted.
#pragma once

#include <map>
#include <vector>

#include "platform/Modules.h"
#include "simulated/Watch.h"

namespace simulated {

class Memory : public platform::Memory {
public:
    Watch watch;
    int blocks() const { return static_cast<int>(blocks_.size()); }

    Block GlobalAlloc(std::size_t bytes) override;
    std::uint8_t* GlobalLock(Block block) override;
    void GlobalUnlock(Block block) override;
    void GlobalFree(Block block) override;

private:
    std::map<Block, std::vector<std::uint8_t>> blocks_;
    Block next_ = 0;
};

}  // namespace simulated
