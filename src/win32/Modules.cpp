#include "win32/Modules.h"

#include <windows.h>
// After windows.h.
#include <shellapi.h>

#include <algorithm>
#include <exception>

#include "platform/bytes.h"
#include "win32/DelayLoaded.h"
#include "win32/Graphics.h"
#include "win32/ResourceTree.h"

namespace win32 {

using namespace platform;

namespace {

HMODULE native(Module module) {
    return reinterpret_cast<HMODULE>(module);
}

// A resource's type or name in the form the system takes: a pointer, or a number in its place.
const char* native(const ResourceId& id) {
    if (const auto* text = std::get_if<std::string>(&id)) return text->c_str();
    return MAKEINTRESOURCEA(std::get<std::uint16_t>(id));
}

ResourceId portable(const char* id) {
    const auto number = reinterpret_cast<ULONG_PTR>(id);
    if (number >> 16 == 0) return static_cast<std::uint16_t>(number);
    return std::string(id);
}

// The bytes from `address` on that can be read, at most `size`.
std::size_t readable(const void* address, std::size_t size) {
    const auto* at = static_cast<const char*>(address);
    std::size_t have = 0;
    MEMORY_BASIC_INFORMATION region;
    while (have < size && VirtualQuery(at + have, &region, sizeof region) == sizeof region) {
        if (region.State != MEM_COMMIT || region.Protect & (PAGE_NOACCESS | PAGE_GUARD)) break;
        have = static_cast<std::size_t>(static_cast<const char*>(region.BaseAddress) + region.RegionSize - at);
    }
    return std::min(have, size);
}

// A file that is mapped as it lies on the disk has a mark in its handle; others the system has laid out, and checked,
// like a program it runs.
bool isFlat(HMODULE module) {
    return reinterpret_cast<ULONG_PTR>(module) & 3;
}

bool canBeWalked(HMODULE module) {
    if (!isFlat(module)) return true;
    const auto* base = reinterpret_cast<const std::uint8_t*>(reinterpret_cast<ULONG_PTR>(module) & ~ULONG_PTR{3});
    MEMORY_BASIC_INFORMATION region;
    if (VirtualQuery(base, &region, sizeof region) != sizeof region) return false;
    return resourcesCanBeWalked({base, region.RegionSize});
}

// Whether a block of sixteen strings, each its length and its characters, stays inside the bytes it has.
bool isStringBlock(std::span<const std::uint8_t> block) {
    for (int i = 0; i < 16; ++i) {
        if (block.size() < 2) return false;
        const std::size_t size = 2 + 2 * std::size_t{read16(block, 0)};
        if (block.size() < size) return false;
        block = block.subspan(size);
    }
    return true;
}

// No message box about a bad image or an empty drive while a file is opened.
class QuietErrors {
public:
    QuietErrors() : before_(SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX)) {}
    ~QuietErrors() { SetErrorMode(before_); }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

private:
    UINT before_;
};

// What an enumeration's callback fills. An exception cannot cross the system: it waits here.
struct Collected {
    std::vector<ResourceId>& ids;
    std::exception_ptr thrown;

    BOOL add(const char* id) noexcept {
        try {
            ids.push_back(portable(id));
            return TRUE;
        } catch (...) {
            thrown = std::current_exception();
            return FALSE;
        }
    }
};

BOOL CALLBACK addType(HMODULE, LPSTR type, LONG_PTR collected) {
    return reinterpret_cast<Collected*>(collected)->add(type);
}

BOOL CALLBACK addName(HMODULE, LPCSTR, LPSTR name, LONG_PTR collected) {
    return reinterpret_cast<Collected*>(collected)->add(name);
}

}  // namespace

template <class T>
T Modules::failed(T answer) {
    lastError_ = GetLastError();
    return answer;
}

Module Modules::LoadLibraryExA(const std::string& file) {
    const QuietErrors quiet;
    const HMODULE module = ::LoadLibraryExA(file.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (!module) return failed<Module>(0);
    if (!canBeWalked(module)) {
        ::FreeLibrary(module);
        SetLastError(ERROR_BAD_EXE_FORMAT);
        return failed<Module>(0);
    }
    return reinterpret_cast<Module>(module);
}

void Modules::FreeLibrary(Module module) {
    if (module) ::FreeLibrary(native(module));
}

ResourceInfo Modules::FindResourceA(Module module, const ResourceId& name, const ResourceId& type) {
    const HRSRC found = ::FindResourceA(native(module), native(name), native(type));
    return found ? reinterpret_cast<ResourceInfo>(found) : failed<ResourceInfo>(0);
}

ResourceData Modules::LoadResource(Module module, ResourceInfo info) {
    const HGLOBAL data = ::LoadResource(native(module), reinterpret_cast<HRSRC>(info));
    return data ? reinterpret_cast<ResourceData>(data) : failed<ResourceData>(0);
}

std::span<const std::uint8_t> Modules::LockResource(Module module, ResourceInfo info, ResourceData data) {
    const std::size_t size = ::SizeofResource(native(module), reinterpret_cast<HRSRC>(info));
    const auto* bytes = static_cast<const std::uint8_t*>(::LockResource(reinterpret_cast<HGLOBAL>(data)));
    if (!bytes) return failed<std::span<const std::uint8_t>>({});
    // The size is what the file claims.
    if (readable(bytes, size) < size) {
        SetLastError(ERROR_BAD_EXE_FORMAT);
        return failed<std::span<const std::uint8_t>>({});
    }
    return {bytes, size};
}

Result Modules::EnumResourceTypesA(Module module, std::vector<ResourceId>& types) {
    Collected collected{types, nullptr};
    const BOOL ok = ::EnumResourceTypesA(native(module), addType, reinterpret_cast<LONG_PTR>(&collected));
    const Result code = ok ? Result{Success} : failed(Result{GetLastError()});
    if (collected.thrown) std::rethrow_exception(collected.thrown);
    return code;
}

Result Modules::EnumResourceNamesA(Module module, const ResourceId& type, std::vector<ResourceId>& names) {
    Collected collected{names, nullptr};
    const BOOL ok = ::EnumResourceNamesA(native(module), native(type), addName, reinterpret_cast<LONG_PTR>(&collected));
    const Result code = ok ? Result{Success} : failed(Result{GetLastError()});
    if (collected.thrown) std::rethrow_exception(collected.thrown);
    return code;
}

std::string Modules::LoadStringA(Module module, std::uint32_t number) {
    // The system goes from string to string without looking where the block ends.
    const ResourceInfo info = FindResourceA(module, static_cast<std::uint16_t>(number / 16 + 1), RtString);
    if (!info || !isStringBlock(LockResource(module, info, LoadResource(module, info)))) return "";
    char text[255] = "";
    const int length = ::LoadStringA(native(module), number, text, sizeof text);
    return length > 0 ? std::string(text, static_cast<std::size_t>(length)) : failed(std::string());
}

std::uint32_t Modules::countIcons(const std::string& path) {
    const QuietErrors quiet;
    // A program file that cannot be walked is not given to a function that would.
    if (const HMODULE module = ::LoadLibraryExA(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE)) {
        const bool sound = canBeWalked(module);
        ::FreeLibrary(module);
        if (!sound) return 0;
    }
    const auto extract = delayLoaded<decltype(&ExtractIconA)>("shell32.dll", "ExtractIconA");
    if (!extract) return 0;
    const HICON count = extract(GetModuleHandleA(nullptr), path.c_str(), static_cast<UINT>(-1));
    return static_cast<std::uint32_t>(reinterpret_cast<ULONG_PTR>(count));
}

IconHandle Modules::CreateIconFromResource(std::span<const std::uint8_t> image, int width, int height) {
    Icon icon = width > 0 && height > 0 ? makeIcon(image, width, height) : Icon();
    if (!icon) lastError_ = InvalidParameter;
    return reinterpret_cast<IconHandle>(icon.release());
}

void Modules::DestroyIcon(IconHandle icon) {
    if (icon) ::DestroyIcon(reinterpret_cast<HICON>(icon));
}

std::string Modules::FormatMessageA(Result code) {
    char text[512] = "";
    DWORD length = ::FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0, text,
                                    sizeof text, nullptr);
    while (length > 0 && static_cast<unsigned char>(text[length - 1]) <= ' ') --length;
    return {text, length};
}

}  // namespace win32
