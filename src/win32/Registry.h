// The system's registry. Keeps no state: handles are the system's own.
#pragma once

#include "platform/Registry.h"

namespace win32 {

class Registry : public platform::Registry {
public:
    using HKey = platform::HKey;
    using Result = platform::Result;

    Result RegOpenKeyExA(HKey key, const std::string& subKey, platform::AccessMask access, HKey& opened) override;
    Result RegOpenKeyA(HKey key, const std::string& subKey, HKey& opened) override;
    Result RegCreateKeyExA(HKey key, const std::string& subKey, platform::AccessMask access, HKey& created) override;
    Result RegCloseKey(HKey key) override;
    Result RegDeleteKeyA(HKey key, const std::string& subKey) override;
    Result RegDeleteValueA(HKey key, const std::string& name) override;
    Result RegQueryInfoKeyA(HKey key, platform::KeyInfo& info) override;
    Result RegEnumKeyExA(HKey key, std::uint32_t index, char* name, std::uint32_t& length) override;
    Result RegEnumValueA(HKey key, std::uint32_t index, char* name, std::uint32_t& length, platform::RegType& type,
                         std::uint8_t* data, std::uint32_t& size) override;
    Result RegQueryValueExA(HKey key, const std::string& name, platform::RegType& type, std::uint8_t* data,
                            std::uint32_t& size) override;
    Result RegSetValueExA(HKey key, const std::string& name, platform::RegType type, const std::uint8_t* data,
                          std::uint32_t size) override;
};

}  // namespace win32
