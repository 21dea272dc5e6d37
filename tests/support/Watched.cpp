#include "support/Watched.h"

namespace watched {

using namespace platform;

std::optional<Result> Watch::before(const char* function) {
    if (onCall) onCall(function);
    const auto calls = calls_.find(std::string_view(function));
    ++(calls == calls_.end() ? calls_[function] : calls->second);
    std::optional<Result> answer = above ? above->before(function) : std::nullopt;
    if (failures_.empty()) return answer;
    for (const std::string_view key : {std::string_view(Any), std::string_view(function)}) {
        const auto failure = failures_.find(key);
        if (failure == failures_.end() || --failure->second.countdown > 0) continue;
        answer = failure->second.code;
        failures_.erase(failure);
        failed_ = true;
    }
    return answer;
}

void Watch::reset() {
    calls_.clear();
    failures_.clear();
    failed_ = false;
}

int Watch::calls() const {
    int sum = 0;
    for (const auto& [function, count] : calls_) sum += count;
    return sum;
}

int Watch::calls(const std::string& function) const {
    const auto found = calls_.find(function);
    return found == calls_.end() ? 0 : found->second;
}

void Watch::failOn(int n, Result code) {
    failures_[Any] = {n, code};
}
void Watch::failOn(const std::string& function, int n, Result code) {
    failures_[function] = {n, code};
}

// --- registry

Result Registry::opened(Result code, HKey& handle) {
    if (code == Success && handle < HKeyClassesRoot) open_.insert(handle);
    return code;
}

Result Registry::RegOpenKeyExA(HKey key, const std::string& subKey, AccessMask access, HKey& handle) {
    handle = 0;
    if (const auto code = watch.before("RegOpenKeyExA")) return *code;
    return opened(inner_.RegOpenKeyExA(key, subKey, access, handle), handle);
}

Result Registry::RegOpenKeyA(HKey key, const std::string& subKey, HKey& handle) {
    handle = 0;
    if (const auto code = watch.before("RegOpenKeyA")) return *code;
    const Result code = inner_.RegOpenKeyA(key, subKey, handle);
    return handle == key ? code : opened(code, handle);
}

Result Registry::RegCreateKeyExA(HKey key, const std::string& subKey, AccessMask access, HKey& handle) {
    handle = 0;
    if (const auto code = watch.before("RegCreateKeyExA")) return *code;
    return opened(inner_.RegCreateKeyExA(key, subKey, access, handle), handle);
}

// A close that is made to fail still closes: otherwise the leak would be the test's.
Result Registry::RegCloseKey(HKey key) {
    const auto code = watch.before("RegCloseKey");
    open_.erase(key);
    const Result closed = inner_.RegCloseKey(key);
    return code.value_or(closed);
}

Result Registry::RegDeleteKeyA(HKey key, const std::string& subKey) {
    if (const auto code = watch.before("RegDeleteKeyA")) return *code;
    return inner_.RegDeleteKeyA(key, subKey);
}

Result Registry::RegDeleteValueA(HKey key, const std::string& name) {
    if (const auto code = watch.before("RegDeleteValueA")) return *code;
    return inner_.RegDeleteValueA(key, name);
}

Result Registry::RegQueryInfoKeyA(HKey key, KeyInfo& info) {
    if (const auto code = watch.before("RegQueryInfoKeyA")) return *code;
    return inner_.RegQueryInfoKeyA(key, info);
}

Result Registry::RegEnumKeyExA(HKey key, std::uint32_t index, char* name, std::uint32_t& length) {
    if (const auto code = watch.before("RegEnumKeyExA")) return *code;
    return inner_.RegEnumKeyExA(key, index, name, length);
}

Result Registry::RegEnumValueA(HKey key, std::uint32_t index, char* name, std::uint32_t& length, RegType& type,
                               std::uint8_t* data, std::uint32_t& size) {
    if (const auto code = watch.before("RegEnumValueA")) return *code;
    return inner_.RegEnumValueA(key, index, name, length, type, data, size);
}

Result Registry::RegQueryValueExA(HKey key, const std::string& name, RegType& type, std::uint8_t* data,
                                  std::uint32_t& size) {
    if (const auto code = watch.before("RegQueryValueExA")) return *code;
    return inner_.RegQueryValueExA(key, name, type, data, size);
}

Result Registry::RegSetValueExA(HKey key, const std::string& name, RegType type, const std::uint8_t* data,
                                std::uint32_t size) {
    if (const auto code = watch.before("RegSetValueExA")) return *code;
    return inner_.RegSetValueExA(key, name, type, data, size);
}

// --- files

Result Files::findFirst(const std::string& pattern, Search& search, FoundFile& found) {
    search = 0;
    if (const auto code = watch.before("findFirst")) return *code;
    const Result code = inner_.findFirst(pattern, search, found);
    if (code == Success) ++searches_;
    return code;
}

Result Files::findNext(Search search, FoundFile& found) {
    if (const auto code = watch.before("findNext")) return *code;
    return inner_.findNext(search, found);
}

void Files::findClose(Search search) {
    (void)watch.before("findClose");
    if (search != 0) --searches_;
    inner_.findClose(search);
}

Result Files::attributes(const std::string& path, std::uint32_t& bits) {
    if (const auto code = watch.before("attributes")) return *code;
    return inner_.attributes(path, bits);
}

Result Files::read(const std::string& path, std::string& bytes, std::size_t limit) {
    bytes.clear();
    if (const auto code = watch.before("read")) return *code;
    return inner_.read(path, bytes, limit);
}

Result Files::create(const std::string& path, std::string_view bytes, std::uint32_t& written) {
    written = 0;
    if (const auto code = watch.before("create")) return *code;
    return inner_.create(path, bytes, written);
}

Result Files::append(const std::string& path, std::string_view bytes, std::uint32_t& written) {
    written = 0;
    if (const auto code = watch.before("append")) return *code;
    return inner_.append(path, bytes, written);
}

Result Files::remove(const std::string& path) {
    if (const auto code = watch.before("remove")) return *code;
    return inner_.remove(path);
}

Result Files::createFolder(const std::string& path) {
    if (const auto code = watch.before("createFolder")) return *code;
    return inner_.createFolder(path);
}

// --- modules

bool Modules::refused(const char* function) {
    ordered_ = watch.before(function);
    return ordered_.has_value();
}

Module Modules::LoadLibraryExA(const std::string& file) {
    if (refused("LoadLibraryExA")) return 0;
    const Module module = inner_.LoadLibraryExA(file);
    if (module) ++loaded_;
    return module;
}

void Modules::FreeLibrary(Module module) {
    (void)watch.before("FreeLibrary");
    if (module) --loaded_;
    inner_.FreeLibrary(module);
}

ResourceInfo Modules::FindResourceA(Module module, const ResourceId& name, const ResourceId& type) {
    return refused("FindResourceA") ? 0 : inner_.FindResourceA(module, name, type);
}

ResourceData Modules::LoadResource(Module module, ResourceInfo info) {
    return refused("LoadResource") ? 0 : inner_.LoadResource(module, info);
}

std::span<const std::uint8_t> Modules::LockResource(Module module, ResourceInfo info, ResourceData data) {
    if (refused("LockResource")) return {};
    return inner_.LockResource(module, info, data);
}

Result Modules::EnumResourceTypesA(Module module, std::vector<ResourceId>& types) {
    return refused("EnumResourceTypesA") ? *ordered_ : inner_.EnumResourceTypesA(module, types);
}

Result Modules::EnumResourceNamesA(Module module, const ResourceId& type, std::vector<ResourceId>& names) {
    return refused("EnumResourceNamesA") ? *ordered_ : inner_.EnumResourceNamesA(module, type, names);
}

std::string Modules::LoadStringA(Module module, std::uint32_t number) {
    return refused("LoadStringA") ? "" : inner_.LoadStringA(module, number);
}

std::uint32_t Modules::countIcons(const std::string& path) {
    return refused("countIcons") ? 0 : inner_.countIcons(path);
}

IconHandle Modules::CreateIconFromResource(std::span<const std::uint8_t> image, int width, int height) {
    if (refused("CreateIconFromResource")) return 0;
    const IconHandle icon = inner_.CreateIconFromResource(image, width, height);
    if (icon) ++icons_;
    return icon;
}

void Modules::DestroyIcon(IconHandle icon) {
    (void)watch.before("DestroyIcon");
    if (icon) --icons_;
    inner_.DestroyIcon(icon);
}

// Asked for what failed before, so that must stay the last error.
std::string Modules::FormatMessageA(Result code) {
    return watch.before("FormatMessageA") ? "" : inner_.FormatMessageA(code);
}
Result Modules::lastError() const {
    return ordered_ ? *ordered_ : inner_.lastError();
}

// --- memory

Memory::Block Memory::GlobalAlloc(std::size_t bytes) {
    if (watch.before("GlobalAlloc")) return 0;
    const Block block = inner_.GlobalAlloc(bytes);
    if (block) ++blocks_;
    return block;
}

std::uint8_t* Memory::GlobalLock(Block block) {
    return watch.before("GlobalLock") ? nullptr : inner_.GlobalLock(block);
}

void Memory::GlobalUnlock(Block block) {
    (void)watch.before("GlobalUnlock");
    inner_.GlobalUnlock(block);
}

void Memory::GlobalFree(Block block) {
    (void)watch.before("GlobalFree");
    if (block) --blocks_;
    inner_.GlobalFree(block);
}

}  // namespace watched
