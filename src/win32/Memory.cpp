#include "win32/Memory.h"

#include <windows.h>

namespace win32 {

namespace {

HGLOBAL native(platform::Memory::Block block) {
    return reinterpret_cast<HGLOBAL>(block);
}

}  // namespace

Memory::Block Memory::GlobalAlloc(std::size_t bytes) {
    return reinterpret_cast<Block>(::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, bytes));
}

std::uint8_t* Memory::GlobalLock(Block block) {
    return static_cast<std::uint8_t*>(::GlobalLock(native(block)));
}
void Memory::GlobalUnlock(Block block) {
    ::GlobalUnlock(native(block));
}
void Memory::GlobalFree(Block block) {
    ::GlobalFree(native(block));
}

}  // namespace win32
