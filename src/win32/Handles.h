// Owners of system handles.
#pragma once

#include <utility>

#include "win32/WindowsHeaders.h"

namespace win32 {

inline void destroy(HFONT font) {
    DeleteObject(font);
}
inline void destroy(HBITMAP bitmap) {
    DeleteObject(bitmap);
}
inline void destroy(HPALETTE palette) {
    DeleteObject(palette);
}
inline void destroy(HICON icon) {
    DestroyIcon(icon);
}
inline void destroy(HIMAGELIST images) {
    ImageList_Destroy(images);
}
inline void destroy(HMENU menu) {
    DestroyMenu(menu);
}
inline void destroy(HDC memory) {
    DeleteDC(memory);
}

template <class Handle>
class Owned {
public:
    Owned() = default;
    explicit Owned(Handle handle) : handle_(handle) {}
    Owned(Owned&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Owned& operator=(Owned&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~Owned() {
        if (handle_) win32::destroy(handle_);
    }
    Handle get() const { return handle_; }
    // Gives the handle up: someone else destroys it.
    Handle release() { return std::exchange(handle_, nullptr); }
    explicit operator bool() const { return handle_ != nullptr; }

private:
    Handle handle_ = nullptr;
};

using Font = Owned<HFONT>;
using Bitmap = Owned<HBITMAP>;
using Palette = Owned<HPALETTE>;
using Icon = Owned<HICON>;
using Images = Owned<HIMAGELIST>;
using MenuHandle = Owned<HMENU>;
using MemoryContext = Owned<HDC>;

// The screen's drawing context.
class ScreenContext {
public:
    ScreenContext() : context_(GetDC(nullptr)) {}
    ScreenContext(const ScreenContext&) = delete;
    ScreenContext& operator=(const ScreenContext&) = delete;
    ~ScreenContext() { ReleaseDC(nullptr, context_); }
    operator HDC() const { return context_; }

private:
    HDC context_;
};

// Selects an object into a context and puts the old one back.
class Selected {
public:
    Selected(HDC context, HGDIOBJ object) : context_(context), old_(SelectObject(context, object)) {}
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;
    ~Selected() { SelectObject(context_, old_); }

private:
    HDC context_;
    HGDIOBJ old_;
};

}  // namespace win32
