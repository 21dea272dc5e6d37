// A registry in memory that answers like the real one.
//
// Codes, lengths and what failed calls leave behind are those measured on the real system; the contract tests hold
// both to the same answers. Stricter than the real one in two ways, so that mistakes show: a handle number is never
// given out twice, and information about a key wants the right to query it (which NT asks for, Wine does not).
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>

#include "platform/Registry.h"
#include "simulated/Names.h"
#include "simulated/Watch.h"

namespace simulated {

class Registry : public platform::Registry {
public:
    using HKey = platform::HKey;
    using Result = platform::Result;

    Registry();
    ~Registry() override;
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;

    Watch watch;
    // Windows 95 and 98 delete a key with everything below it, NT refuses one that has subkeys.
    bool deletesSubtrees = false;
    // They list keys in any order, and give a key that is opened once more the handle it has.
    bool shuffles = false, repeatsHandles = false;
    // Lists the key under another name, as the system does when a name has characters outside the code page: the name
    // that is listed leads to another key, or to none.
    void listAs(const std::string& path, const std::string& listed);
    // Handles that have not been closed; predefined ones do not count.
    std::size_t openHandles() const { return handles_.size(); }

    // What is in it: by "HKEY_CURRENT_USER\\Key|name" a value's type, as one byte, and data; a key itself is there with
    // its "|" alone.
    using Contents = std::map<std::string, std::string>;
    Contents contents() const;
    // Handles that are open then are those of deleted keys.
    void setContents(const Contents& contents);

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

private:
    struct Value;
    struct Key;
    struct Handle;

    Result resolve(HKey handle, platform::AccessMask needed, std::shared_ptr<Key>& key) const;
    Result walk(HKey handle, const std::string& subKey, bool create, std::shared_ptr<Key>& key) const;
    HKey give(const std::shared_ptr<Key>& key, platform::AccessMask access);
    // The value with this name, which is made when there is none.
    static Value& valueIn(Key& key, std::string_view name);
    static void collect(const Key& key, const std::string& path, Contents& contents);

    std::map<HKey, std::shared_ptr<Key>> roots_;
    std::map<HKey, Handle> handles_;
    HKey next_ = 0x20;
};

}  // namespace simulated
