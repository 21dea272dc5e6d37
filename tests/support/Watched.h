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
    // The code that was ordered, or what the service itself answers.
    template <class Service>
    platform::Result ask(const char* function, Service service) {
        const auto ordered = before(function);
        return ordered ? *ordered : service();
    }
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

    Result RegOpenKeyExA(HKey key, const std::string& subKey, platform::AccessMask access, HKey& handle) override {
        handle = 0;
        const auto open = [&] { return inner_.RegOpenKeyExA(key, subKey, access, handle); };
        return noted(watch.ask("RegOpenKeyExA", open), handle);
    }
    Result RegOpenKeyA(HKey key, const std::string& subKey, HKey& handle) override {
        handle = 0;
        const Result code = watch.ask("RegOpenKeyA", [&] { return inner_.RegOpenKeyA(key, subKey, handle); });
        return handle == key ? code : noted(code, handle);
    }
    Result RegCreateKeyExA(HKey key, const std::string& subKey, platform::AccessMask access, HKey& handle) override {
        handle = 0;
        const auto create = [&] { return inner_.RegCreateKeyExA(key, subKey, access, handle); };
        return noted(watch.ask("RegCreateKeyExA", create), handle);
    }
    // A close that is made to fail still closes: otherwise the leak would be the test's.
    Result RegCloseKey(HKey key) override {
        open_.erase(key);
        const Result closed = inner_.RegCloseKey(key);
        return watch.ask("RegCloseKey", [&] { return closed; });
    }
    Result RegDeleteKeyA(HKey key, const std::string& subKey) override {
        return watch.ask("RegDeleteKeyA", [&] { return inner_.RegDeleteKeyA(key, subKey); });
    }
    Result RegDeleteValueA(HKey key, const std::string& name) override {
        return watch.ask("RegDeleteValueA", [&] { return inner_.RegDeleteValueA(key, name); });
    }
    Result RegQueryInfoKeyA(HKey key, platform::KeyInfo& info) override {
        return watch.ask("RegQueryInfoKeyA", [&] { return inner_.RegQueryInfoKeyA(key, info); });
    }
    Result RegEnumKeyExA(HKey key, std::uint32_t index, char* name, std::uint32_t& length) override {
        return watch.ask("RegEnumKeyExA", [&] { return inner_.RegEnumKeyExA(key, index, name, length); });
    }
    Result RegEnumValueA(HKey key, std::uint32_t index, char* name, std::uint32_t& length, platform::RegType& type,
                         std::uint8_t* data, std::uint32_t& size) override {
        const auto list = [&] { return inner_.RegEnumValueA(key, index, name, length, type, data, size); };
        return watch.ask("RegEnumValueA", list);
    }
    Result RegQueryValueExA(HKey key, const std::string& name, platform::RegType& type, std::uint8_t* data,
                            std::uint32_t& size) override {
        return watch.ask("RegQueryValueExA", [&] { return inner_.RegQueryValueExA(key, name, type, data, size); });
    }
    Result RegSetValueExA(HKey key, const std::string& name, platform::RegType type, const std::uint8_t* data,
                          std::uint32_t size) override {
        return watch.ask("RegSetValueExA", [&] { return inner_.RegSetValueExA(key, name, type, data, size); });
    }

private:
    Result noted(Result code, const HKey& handle) {
        if (code == platform::Success && handle < platform::HKeyClassesRoot) open_.insert(handle);
        return code;
    }

    platform::Registry& inner_;
    std::set<HKey> open_;
};

class Files : public platform::Files {
public:
    using Result = platform::Result;

    explicit Files(platform::Files& inner) : inner_(inner) {}
    Watch watch;
    int openSearches() const { return searches_; }

    Result findFirst(const std::string& pattern, Search& search, platform::FoundFile& found) override {
        search = 0;
        const Result code = watch.ask("findFirst", [&] { return inner_.findFirst(pattern, search, found); });
        searches_ += code == platform::Success;
        return code;
    }
    Result findNext(Search search, platform::FoundFile& found) override {
        return watch.ask("findNext", [&] { return inner_.findNext(search, found); });
    }
    void findClose(Search search) override {
        (void)watch.before("findClose");
        searches_ -= search != 0;
        inner_.findClose(search);
    }
    Result attributes(const std::string& path, std::uint32_t& bits) override {
        return watch.ask("attributes", [&] { return inner_.attributes(path, bits); });
    }
    Result read(const std::string& path, std::string& bytes, std::size_t limit = Whole) override {
        bytes.clear();
        return watch.ask("read", [&] { return inner_.read(path, bytes, limit); });
    }
    Result create(const std::string& path, std::string_view bytes, std::uint32_t& written) override {
        written = 0;
        return watch.ask("create", [&] { return inner_.create(path, bytes, written); });
    }
    Result append(const std::string& path, std::string_view bytes, std::uint32_t& written) override {
        written = 0;
        return watch.ask("append", [&] { return inner_.append(path, bytes, written); });
    }
    Result remove(const std::string& path) override {
        return watch.ask("remove", [&] { return inner_.remove(path); });
    }
    Result createFolder(const std::string& path) override {
        return watch.ask("createFolder", [&] { return inner_.createFolder(path); });
    }

private:
    platform::Files& inner_;
    int searches_ = 0;
};

class Modules : public platform::Modules {
public:
    using Module = platform::Module;
    using ResourceId = platform::ResourceId;
    using ResourceInfo = platform::ResourceInfo;
    using ResourceData = platform::ResourceData;

    explicit Modules(platform::Modules& inner) : inner_(inner) {}
    Watch watch;
    int loaded() const { return loaded_; }
    int icons() const { return icons_; }

    Module LoadLibraryExA(const std::string& file) override {
        const Module module = refused("LoadLibraryExA") ? 0 : inner_.LoadLibraryExA(file);
        loaded_ += module != 0;
        return module;
    }
    void FreeLibrary(Module module) override {
        (void)watch.before("FreeLibrary");
        loaded_ -= module != 0;
        inner_.FreeLibrary(module);
    }
    ResourceInfo FindResourceA(Module module, const ResourceId& name, const ResourceId& type) override {
        return refused("FindResourceA") ? 0 : inner_.FindResourceA(module, name, type);
    }
    ResourceData LoadResource(Module module, ResourceInfo info) override {
        return refused("LoadResource") ? 0 : inner_.LoadResource(module, info);
    }
    std::span<const std::uint8_t> LockResource(Module module, ResourceInfo info, ResourceData data) override {
        if (refused("LockResource")) return {};
        return inner_.LockResource(module, info, data);
    }
    platform::Result EnumResourceTypesA(Module module, std::vector<ResourceId>& types) override {
        return refused("EnumResourceTypesA") ? *ordered_ : inner_.EnumResourceTypesA(module, types);
    }
    platform::Result EnumResourceNamesA(Module module, const ResourceId& type,
                                        std::vector<ResourceId>& names) override {
        return refused("EnumResourceNamesA") ? *ordered_ : inner_.EnumResourceNamesA(module, type, names);
    }
    std::string LoadStringA(Module module, std::uint32_t number) override {
        return refused("LoadStringA") ? "" : inner_.LoadStringA(module, number);
    }
    std::uint32_t countIcons(const std::string& path) override {
        return refused("countIcons") ? 0 : inner_.countIcons(path);
    }
    platform::IconHandle CreateIconFromResource(std::span<const std::uint8_t> image, int width, int height) override {
        const auto icon = refused("CreateIconFromResource") ? 0 : inner_.CreateIconFromResource(image, width, height);
        icons_ += icon != 0;
        return icon;
    }
    void DestroyIcon(platform::IconHandle icon) override {
        (void)watch.before("DestroyIcon");
        icons_ -= icon != 0;
        inner_.DestroyIcon(icon);
    }
    // Asked for what failed before, so that must stay the last error.
    std::string FormatMessageA(platform::Result code) override {
        return watch.before("FormatMessageA") ? "" : inner_.FormatMessageA(code);
    }
    platform::Result lastError() const override { return ordered_ ? *ordered_ : inner_.lastError(); }

private:
    // True when the call is to fail; lastError is then the ordered code.
    bool refused(const char* function) {
        ordered_ = watch.before(function);
        return ordered_.has_value();
    }

    platform::Modules& inner_;
    std::optional<platform::Result> ordered_;
    int loaded_ = 0, icons_ = 0;
};

class Memory : public platform::Memory {
public:
    explicit Memory(platform::Memory& inner) : inner_(inner) {}
    Watch watch;
    int blocks() const { return blocks_; }

    Block GlobalAlloc(std::size_t bytes) override {
        const Block block = watch.before("GlobalAlloc") ? 0 : inner_.GlobalAlloc(bytes);
        blocks_ += block != 0;
        return block;
    }
    std::uint8_t* GlobalLock(Block block) override {
        return watch.before("GlobalLock") ? nullptr : inner_.GlobalLock(block);
    }
    void GlobalUnlock(Block block) override {
        (void)watch.before("GlobalUnlock");
        inner_.GlobalUnlock(block);
    }
    void GlobalFree(Block block) override {
        (void)watch.before("GlobalFree");
        blocks_ -= block != 0;
        inner_.GlobalFree(block);
    }

private:
    platform::Memory& inner_;
    int blocks_ = 0;
};

}  // namespace watched
