// The blocks in which a program file holds its strings: sixteen to a resource, numbered on from block to block.
#pragma once

#include <optional>

#include "platform/bytes.h"

namespace platform {

// The number of the resource that holds a string.
constexpr std::uint16_t stringBlockOf(std::uint32_t string) {
    return static_cast<std::uint16_t>(string / 16 + 1);
}
// The characters (UTF-16) of a string in its block; none where it has not been given one. Nothing when the block ends
// before the string does.
std::optional<ByteSpan> stringInBlock(ByteSpan block, std::uint32_t string);

}  // namespace platform
