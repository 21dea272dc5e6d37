// Services that count what is asked of them, and refuse it when a test wants to see what happens then.
//
//     system.registry.watch.failOn("RegSetValueExA", 2, platform::AccessDenied);
//     ...
//     EXPECT_LE(system.registry.watch.calls(), 60);
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "platform/Files.h"
#include "platform/Modules.h"
#include "platform/Registry.h"

namespace watched {

class Watch {
public:
    // Every watched function asks here first, and answers the code instead of doing its work.
    std::optional<platform::Result> before(const char* function);
    // Asked too, with each call: the watch of several services together.
    Watch* above = nullptr;
    std::function<void(const char* function)> onCall;

    int calls() const;
    int calls(const std::string& function) const;
    // The n-th call from now on (1 is the next), of any function or of one, answers `code`.
    void failOn(int n, platform::Result code);
    void failOn(const std::string& function, int n, platform::Result code);
    // Whether a failure that was ordered has happened.
    bool failed() const { return failed_; }
    void reset();

private:
    struct Failure {
        int countdown = 0;
        platform::Result code = platform::Success;
    };
    static constexpr const char* Any = "";
    std::map<std::string, int, std::less<>> calls_;
    std::map<std::string, Failure, std::less<>> failures_;  // by function
    bool failed_ = false;
};

class Registry : public platform::Registry {
public:
    using HKey = platform::HKey;
    using Result = platform::Result;

    explicit Registry(platform::Registry& inner) : inner_(inner) {}
    Watch watch;
    // Handles given out and not closed; predefined ones do not count.
    std::size_t openHandles() const { return open_.size(); }

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
    Result opened(Result code, HKey& handle);

    platform::Registry& inner_;
    std::set<HKey> open_;
};

class Files : public platform::Files {
public:
    using Result = platform::Result;

    explicit Files(platform::Files& inner) : inner_(inner) {}
    Watch watch;
    int openSearches() const { return searches_; }

    Result findFirst(const std::string& pattern, Search& search, platform::FoundFile& found) override;
    Result findNext(Search search, platform::FoundFile& found) override;
    void findClose(Search search) override;
    Result attributes(const std::string& path, std::uint32_t& bits) override;
    Result read(const std::string& path, std::string& bytes, std::size_t limit = Whole) override;
    Result create(const std::string& path, std::string_view bytes, std::uint32_t& written) override;
    Result append(const std::string& path, std::string_view bytes, std::uint32_t& written) override;
    Result remove(const std::string& path) override;
    Result createFolder(const std::string& path) override;

private:
    platform::Files& inner_;
    int searches_ = 0;
};

class Modules : public platform::Modules {
public:
    explicit Modules(platform::Modules& inner) : inner_(inner) {}
    Watch watch;
    int loaded() const { return loaded_; }
    int icons() const { return icons_; }

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
    platform::Result lastError() const override;

private:
    // True when the call is to fail; lastError is then the ordered code.
    bool refused(const char* function);

    platform::Modules& inner_;
    std::optional<platform::Result> ordered_;
    int loaded_ = 0, icons_ = 0;
};

class Memory : public platform::Memory {
public:
    explicit Memory(platform::Memory& inner) : inner_(inner) {}
    Watch watch;
    int blocks() const { return blocks_; }

    Block GlobalAlloc(std::size_t bytes) override;
    std::uint8_t* GlobalLock(Block block) override;
    void GlobalUnlock(Block block) override;
    void GlobalFree(Block block) override;

private:
    platform::Memory& inner_;
    int blocks_ = 0;
};

}  // namespace watched
