// Buffers for registry calls that answer MoreData: what is asked for may have grown since its size was told.
#pragma once

#include <algorithm>
#include <string>

#include "platform/Registry.h"

// False when the buffer is larger than anything a sound registry holds: something else is wrong then.
inline bool Grow(std::string& name) {
    if (name.size() > 0x20000) return false;
    name.resize(2 * name.size());
    return true;
}

inline bool Grow(platform::Bytes& data, std::size_t needed) {
    if (data.size() > 0x10000000) return false;
    data.resize(std::max(2 * data.size(), needed));
    return true;
}
