// Enlarges the buffer of a registry call that has answered MoreData. The size that the system gave may be too small by
// now, because another program has written meanwhile.
#pragma once

#include <algorithm>
#include <string>

#include "platform/Registry.h"

// False when the buffer is larger than anything an intact registry holds: growing it further would never end.
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
