// What a form draws itself: a control that has no window of its own.
//
// Such controls are most of what a form shows. A window each would take most of the time it takes to open the form,
// and old systems have little room for windows.
#pragma once

#include "win32/WindowsHeaders.h"

namespace win32 {

class Drawn {
public:
    virtual ~Drawn() = default;
    virtual void draw(HDC form) = 0;
};

}  // namespace win32
