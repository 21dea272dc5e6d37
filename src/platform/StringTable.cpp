#include "platform/StringTable.h"

namespace platform {

std::optional<ByteSpan> stringInBlock(ByteSpan block, std::uint32_t string) {
    for (std::uint32_t before = string % 16;; --before) {
        const std::size_t size = 2 * std::size_t{read16(block, 0)};
        if (block.size() < 2 || block.size() - 2 < size) return std::nullopt;
        if (before == 0) return block.subspan(2, size);
        block = block.subspan(2 + size);
    }
}

}  // namespace platform
