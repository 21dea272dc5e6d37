// Owners of system handles.
#pragma once

#include <utility>

#include "win32/WindowsHeaders.h"

namespace win32 {

template <class Handle, auto Release>
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
        if (handle_) Release(handle_);
    }
    Handle get() const { return handle_; }
    Handle release() { return std::exchange(handle_, nullptr); }
    explicit operator bool() const { return handle_ != nullptr; }

private:
    Handle handle_ = nullptr;
};

using Font = Owned<HFONT, [](HFONT font) { DeleteObject(font); }>;
using Bitmap = Owned<HBITMAP, [](HBITMAP bitmap) { DeleteObject(bitmap); }>;
using Icon = Owned<HICON, [](HICON icon) { DestroyIcon(icon); }>;
using Images = Owned<HIMAGELIST, [](HIMAGELIST images) { ImageList_Destroy(images); }>;
using MenuHandle = Owned<HMENU, [](HMENU menu) { DestroyMenu(menu); }>;
using MemoryContext = Owned<HDC, [](HDC context) { DeleteDC(context); }>;

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
