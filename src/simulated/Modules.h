// Program files built in memory, and the icons made from what they hold.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/Modules.h"
#include "simulated/Files.h"

namespace simulated {

// A program file's resources, in the order in which linkers write them: texts first, then numbers, both rising.
class ProgramFile {
public:
    struct Resource {
        platform::ResourceId name;
        platform::Bytes bytes;
    };
    struct Type {
        platform::ResourceId id;
        std::vector<Resource> resources;
    };

    // Replaces what has the same type and name.
    ProgramFile& add(const platform::ResourceId& type, const platform::ResourceId& name, platform::Bytes bytes);
    // Strings stand in blocks of sixteen, resources of type RtString.
    ProgramFile& addString(std::uint32_t number, std::string text);

    const Type* find(const platform::ResourceId& type) const;
    const std::vector<Type>& types() const { return types_; }

private:
    std::vector<Type> types_;
    std::map<std::uint32_t, std::string> strings_;
};

class Modules : public platform::Modules {
public:
    // Icon files are read from `files`, where program files appear too.
    explicit Modules(Files& files) : files_(files) {}
    Watch watch;

    // A program file that can be loaded from now on, by its path or by its base name. A module that is loaded keeps the
    // resources it was loaded with.
    ProgramFile& add(const std::string& path);

    int loaded() const { return static_cast<int>(loaded_.size()); }
    int icons() const { return static_cast<int>(icons_.size()); }

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
    const ProgramFile* find(const std::string& file) const;
    const ProgramFile* module(platform::Module module);
    std::uintptr_t fail(platform::Result code);

    Files& files_;
    std::map<std::string, ProgramFile> programs_;                            // by folded path
    std::map<platform::Module, std::unique_ptr<const ProgramFile>> loaded_;  // copies: freed bytes are really gone
    std::set<platform::IconHandle> icons_;
    std::uintptr_t next_ = 0x10000;
    platform::Result lastError_ = platform::Success;
};

}  // namespace simulated
