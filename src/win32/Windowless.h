// A control without a native window, as its form sees it.
#pragma once

#include "win32/WindowsHeaders.h"

namespace win32 {

class Windowless {
public:
    virtual ~Windowless() = default;
    virtual void draw(HDC form) = 0;
};

}  // namespace win32
