// The registry functions of the system, under their own names.
//
// Arguments are those of the functions in C++ types, results are the system's own codes: this is not a nicer
// registry (clsRegistry is). Text is single bytes in the ANSI code page. What a failed call leaves in its outputs
// is what the system leaves: a handle of 0, lengths as they were.
#pragma once

#include <cstdint>
#include <string>

#include "platform/bytes.h"

namespace platform {

// A result code of the system (winerror.h). Those that the program or its tests distinguish:
using Result = std::uint32_t;
enum : Result {
    Success = 0,
    FileNotFound = 2,       // ERROR_FILE_NOT_FOUND: no such key, value or file
    PathNotFound = 3,       // ERROR_PATH_NOT_FOUND
    AccessDenied = 5,       // ERROR_ACCESS_DENIED
    InvalidHandle = 6,      // ERROR_INVALID_HANDLE
    OutOfMemory = 14,       // ERROR_OUTOFMEMORY
    InvalidParameter = 87,  // ERROR_INVALID_PARAMETER
    DiskFull = 112,         // ERROR_DISK_FULL
    AlreadyExists = 183,    // ERROR_ALREADY_EXISTS
    MoreData = 234,         // ERROR_MORE_DATA: the buffer is too small
    NoMoreItems = 259,      // ERROR_NO_MORE_ITEMS: the index is past the end
    KeyDeleted = 1018,      // ERROR_KEY_DELETED: the key of this handle is gone
    ModuleNotFound = 126,   // ERROR_MOD_NOT_FOUND
    BadExeFormat = 193,     // ERROR_BAD_EXE_FORMAT
    NoSuchResource = 1812,  // ERROR_RESOURCE_DATA_NOT_FOUND and its kin
};

// A registry handle. Its significant part is 32 bits on every Windows; 0 is no handle.
using HKey = std::uint32_t;
enum : HKey {
    HKeyClassesRoot = 0x80000000,
    HKeyCurrentUser = 0x80000001,
    HKeyLocalMachine = 0x80000002,
    HKeyUsers = 0x80000003,
    HKeyCurrentConfig = 0x80000005,
    HKeyDynData = 0x80000006,
};

// Access masks (winnt.h).
using AccessMask = std::uint32_t;
enum : AccessMask {
    KeyQueryValue = 0x1,
    KeySetValue = 0x2,
    KeyCreateSubKey = 0x4,
    KeyEnumerateSubKeys = 0x8,
    KeyAllAccess = 0xF003F,
};

// Value types (winnt.h).
using RegType = std::uint32_t;
enum : RegType { RegNone = 0, RegSz = 1, RegExpandSz = 2, RegBinary = 3, RegDword = 4, RegMultiSz = 7 };

// What RegQueryInfoKeyA tells of a key. Lengths are in bytes, names without their terminating zero.
struct KeyInfo {
    std::uint32_t subKeys = 0;
    std::uint32_t longestSubKey = 0;
    std::uint32_t values = 0;
    std::uint32_t longestValueName = 0;
    std::uint32_t longestData = 0;
};

class Registry {
public:
    virtual ~Registry() = default;

    // `subKey` may be empty: a new handle of the same key.
    virtual Result RegOpenKeyExA(HKey key, const std::string& subKey, AccessMask access, HKey& opened) = 0;
    virtual Result RegOpenKeyA(HKey key, const std::string& subKey, HKey& opened) = 0;
    // Creates the whole chain that `subKey` names, or opens what is there.
    virtual Result RegCreateKeyExA(HKey key, const std::string& subKey, AccessMask access, HKey& created) = 0;
    virtual Result RegCloseKey(HKey key) = 0;
    // One level: AccessDenied for a key that has subkeys (Windows 95 and 98 delete the whole subtree instead).
    virtual Result RegDeleteKeyA(HKey key, const std::string& subKey) = 0;
    virtual Result RegDeleteValueA(HKey key, const std::string& name) = 0;
    virtual Result RegQueryInfoKeyA(HKey key, KeyInfo& info) = 0;

    // `length`: in, the bytes at `name` including room for the terminating zero; out, the length without it.
    virtual Result RegEnumKeyExA(HKey key, std::uint32_t index, char* name, std::uint32_t& length) = 0;
    // `size`: in, the bytes at `data`; out, the size of the data. `data` may be null.
    virtual Result RegEnumValueA(HKey key, std::uint32_t index, char* name, std::uint32_t& length, RegType& type,
                                 std::uint8_t* data, std::uint32_t& size) = 0;
    // The name "" is the key's default value. With `data` null only type and size are told.
    virtual Result RegQueryValueExA(HKey key, const std::string& name, RegType& type, std::uint8_t* data,
                                    std::uint32_t& size) = 0;
    virtual Result RegSetValueExA(HKey key, const std::string& name, RegType type, const std::uint8_t* data,
                                  std::uint32_t size) = 0;
};

}  // namespace platform
