#include "win32/Registry.h"

#include <windows.h>

namespace win32 {

using namespace platform;

namespace {

static_assert(Success == ERROR_SUCCESS && FileNotFound == ERROR_FILE_NOT_FOUND && PathNotFound == ERROR_PATH_NOT_FOUND);
static_assert(AccessDenied == ERROR_ACCESS_DENIED && InvalidHandle == ERROR_INVALID_HANDLE);
static_assert(OutOfMemory == ERROR_OUTOFMEMORY && InvalidParameter == ERROR_INVALID_PARAMETER);
static_assert(DiskFull == ERROR_DISK_FULL && AlreadyExists == ERROR_ALREADY_EXISTS && MoreData == ERROR_MORE_DATA);
static_assert(NoMoreItems == ERROR_NO_MORE_ITEMS && KeyDeleted == ERROR_KEY_DELETED);
static_assert(ModuleNotFound == ERROR_MOD_NOT_FOUND && BadExeFormat == ERROR_BAD_EXE_FORMAT);
static_assert(NoSuchResource == ERROR_RESOURCE_DATA_NOT_FOUND && NoSuchResource + 3 == ERROR_RESOURCE_LANG_NOT_FOUND);
static_assert(KeyQueryValue == KEY_QUERY_VALUE && KeySetValue == KEY_SET_VALUE &&
              KeyCreateSubKey == KEY_CREATE_SUB_KEY);
static_assert(KeyEnumerateSubKeys == KEY_ENUMERATE_SUB_KEYS && KeyAllAccess == KEY_ALL_ACCESS);
static_assert(RegNone == REG_NONE && RegSz == REG_SZ && RegExpandSz == REG_EXPAND_SZ && RegBinary == REG_BINARY);
static_assert(RegDword == REG_DWORD && RegMultiSz == REG_MULTI_SZ);

// Handles have 32 significant bits; the predefined ones are negative, so on 64 bits they begin with ones.
HKEY native(HKey key) {
    return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(key)));
}
HKey portable(HKEY key) {
    return static_cast<HKey>(reinterpret_cast<ULONG_PTR>(key));
}
Result result(LONG code) {
    return static_cast<Result>(code);
}

// The system's numbers are of type unsigned long: the same size, but another type.
DWORD* dword(std::uint32_t& number) {
    static_assert(sizeof(DWORD) == sizeof(std::uint32_t));
    return reinterpret_cast<DWORD*>(&number);
}

bool isText(RegType type) {
    return type == RegSz || type == RegExpandSz || type == RegMultiSz;
}

}  // namespace

Result Registry::RegOpenKeyExA(HKey key, const std::string& subKey, AccessMask access, HKey& opened) {
    HKEY handle = nullptr;
    const LONG code = ::RegOpenKeyExA(native(key), subKey.c_str(), 0, access, &handle);
    opened = code == ERROR_SUCCESS ? portable(handle) : 0;
    return result(code);
}

Result Registry::RegOpenKeyA(HKey key, const std::string& subKey, HKey& opened) {
    HKEY handle = nullptr;
    const LONG code = ::RegOpenKeyA(native(key), subKey.c_str(), &handle);
    opened = code == ERROR_SUCCESS ? portable(handle) : 0;
    return result(code);
}

Result Registry::RegCreateKeyExA(HKey key, const std::string& subKey, AccessMask access, HKey& created) {
    HKEY handle = nullptr;
    DWORD disposition = 0;
    char noClass[] = "";
    const LONG code = ::RegCreateKeyExA(native(key), subKey.c_str(), 0, noClass, REG_OPTION_NON_VOLATILE, access,
                                        nullptr, &handle, &disposition);
    created = code == ERROR_SUCCESS ? portable(handle) : 0;
    return result(code);
}

Result Registry::RegCloseKey(HKey key) {
    return result(::RegCloseKey(native(key)));
}

Result Registry::RegDeleteKeyA(HKey key, const std::string& subKey) {
    return result(::RegDeleteKeyA(native(key), subKey.c_str()));
}

Result Registry::RegDeleteValueA(HKey key, const std::string& name) {
    return result(::RegDeleteValueA(native(key), name.c_str()));
}

Result Registry::RegQueryInfoKeyA(HKey key, KeyInfo& info) {
    KeyInfo found;
    const LONG code = ::RegQueryInfoKeyA(native(key), nullptr, nullptr, nullptr, dword(found.subKeys),
                                         dword(found.longestSubKey), nullptr, dword(found.values),
                                         dword(found.longestValueName), dword(found.longestData), nullptr, nullptr);
    if (code == ERROR_SUCCESS) info = found;
    return result(code);
}

Result Registry::RegEnumKeyExA(HKey key, std::uint32_t index, char* name, std::uint32_t& length) {
    return result(::RegEnumKeyExA(native(key), index, name, dword(length), nullptr, nullptr, nullptr, nullptr));
}

Result Registry::RegEnumValueA(HKey key, std::uint32_t index, char* name, std::uint32_t& length, RegType& type,
                               std::uint8_t* data, std::uint32_t& size) {
    return result(::RegEnumValueA(native(key), index, name, dword(length), nullptr, dword(type), data, dword(size)));
}

Result Registry::RegQueryValueExA(HKey key, const std::string& name, RegType& type, std::uint8_t* data,
                                  std::uint32_t& size) {
    return result(::RegQueryValueExA(native(key), name.c_str(), nullptr, dword(type), data, dword(size)));
}

Result Registry::RegSetValueExA(HKey key, const std::string& name, RegType type, const std::uint8_t* data,
                                std::uint32_t size) {
    // When a text does not end in a zero, NT looks at the byte after it, and stores that too when it is a zero.
    if (isText(type) && data && size > 0 && data[size - 1] != 0) {
        const Bytes guarded = Bytes(data, size) + Bytes(1, 0xFF);
        return result(::RegSetValueExA(native(key), name.c_str(), 0, type, guarded.data(), size));
    }
    return result(::RegSetValueExA(native(key), name.c_str(), 0, type, data, size));
}

}  // namespace win32
