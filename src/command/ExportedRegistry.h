// A registry export as a registry of its own, which can be read and not be written.
#pragma once

#include <string>
#include <string_view>

#include "platform/Console.h"
#include "simulated/Registry.h"

namespace command {

class ExportedRegistry : public simulated::Registry {
public:
    // Reads the bytes of an export: "REGEDIT4" in the code page, or version 5.00 in UTF-16. What the file deletes is
    // gone again. Tells what is wrong with it, and in which line; "" when all of it has been read.
    std::string load(std::string_view bytes, platform::Console& console);

    Result RegCreateKeyExA(HKey key, const std::string& subKey, platform::AccessMask access, HKey& created) override;
    Result RegDeleteKeyA(HKey key, const std::string& subKey) override;
    Result RegDeleteValueA(HKey key, const std::string& name) override;
    Result RegSetValueExA(HKey key, const std::string& name, platform::RegType type, const std::uint8_t* data,
                          std::uint32_t size) override;
};

}  // namespace command
