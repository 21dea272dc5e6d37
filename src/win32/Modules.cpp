#include "win32/Modules.h"

#include <windows.h>
// After windows.h.
#include <shellapi.h>

#include <algorithm>
#include <exception>
#include <limits>

#include "platform/ResourceTree.h"
#include "platform/StringTable.h"
#include "win32/DelayLoaded.h"
#include "win32/Graphics.h"

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

// The bytes from `address` on that can be read and belong to the same mapped file, at most `size`.
std::size_t readable(const void* address, std::size_t size) {
    const auto* at = static_cast<const char*>(address);
    const void* file = nullptr;
    std::size_t have = 0;
    MEMORY_BASIC_INFORMATION region;
    while (have < size && VirtualQuery(at + have, &region, sizeof region) == sizeof region) {
        if (region.State != MEM_COMMIT || region.Protect & (PAGE_NOACCESS | PAGE_GUARD)) break;
        if (file && region.AllocationBase != file) break;
        file = region.AllocationBase;
        have = static_cast<std::size_t>(static_cast<const char*>(region.BaseAddress) + region.RegionSize - at);
    }
    return std::min(have, size);
}

// Systems mark the handle of a file that is opened as data in ways of their own; where it is in memory they all tell.
bool canBeWalked(HMODULE module) {
    MEMORY_BASIC_INFORMATION first;
    if (VirtualQuery(reinterpret_cast<const void*>(module), &first, sizeof first) != sizeof first) return false;
    const std::size_t size = readable(first.AllocationBase, std::numeric_limits<std::size_t>::max());
    const ByteSpan file(static_cast<const std::uint8_t*>(first.AllocationBase), size);
    if (first.Type == MEM_MAPPED) return resourcesCanBeWalked(file, Mapping::Flat);
    return resourcesCanBeWalked(file, Mapping::Loaded) ||
           (first.Type != MEM_IMAGE && resourcesCanBeWalked(file, Mapping::Flat));
}

std::string inCodePage(const std::vector<WCHAR>& wide) {
    const auto convert = [&](char* text, int room) {
        return WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), text, room, nullptr, nullptr);
    };
    std::string text(static_cast<std::size_t>(wide.empty() ? 0 : convert(nullptr, 0)), '\0');
    if (!text.empty()) convert(text.data(), static_cast<int>(text.size()));
    return text;
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
    // The system's own function goes from string to string without looking where the block ends.
    const ResourceInfo info = FindResourceA(module, stringBlockOf(number), RtString);
    if (!info) return "";
    const auto characters = stringInBlock(LockResource(module, info, LoadResource(module, info)), number);
    if (!characters) {
        lastError_ = BadExeFormat;
        return "";
    }
    std::vector<WCHAR> wide;
    for (std::size_t at = 0; at < characters->size(); at += 2) wide.push_back(read16(*characters, at));
    return inCodePage(wide);
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
