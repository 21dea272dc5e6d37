// Program files as the system opens them for reading, and icons as it makes them.
#pragma once

#include "platform/Modules.h"

namespace win32 {

class Modules : public platform::Modules {
public:
    platform::Module LoadLibraryExA(const std::string& file) override;
    void FreeLibrary(platform::Module module) override;
    platform::ResourceInfo FindResourceA(platform::Module module, const platform::ResourceId& name,
                                         const platform::ResourceId& type) override;
    platform::ResourceData LoadResource(platform::Module module, platform::ResourceInfo info) override;
    std::span<const std::uint8_t> LockResource(platform::Module module, platform::ResourceInfo info,
                                               platform::ResourceData data) override;
    platform::Result EnumResourceTypesA(platform::Module module, std::vector<platform::ResourceId>& types) override;
    platform::Result EnumResourceNamesA(platform::Module module, const platform::ResourceId& type,
                                        std::vector<platform::ResourceId>& names) override;
    std::string LoadStringA(platform::Module module, std::uint32_t number) override;
    std::uint32_t countIcons(const std::string& path) override;
    platform::IconHandle CreateIconFromResource(std::span<const std::uint8_t> image, int width, int height) override;
    void DestroyIcon(platform::IconHandle icon) override;
    std::string FormatMessageA(platform::Result code) override;
    platform::Result lastError() const override { return lastError_; }

private:
    template <class T>
    T failed(T answer);

    platform::Result lastError_ = platform::Success;
};

}  // namespace win32
