#include "simulated/Modules.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "platform/ImageLayout.h"
#include "platform/StringTable.h"
#include "simulated/Names.h"

namespace simulated {

using namespace platform;

namespace {

constexpr Result NoResourceType = 1813, NoResourceName = 1814;  // ERROR_RESOURCE_TYPE_NOT_FOUND, ..._NAME_NOT_FOUND

// "#100" is the number 100.
ResourceId normal(const ResourceId& id) {
    const auto* text = std::get_if<std::string>(&id);
    if (!text || !text->starts_with('#')) return id;
    std::uint16_t number = 0;
    const char* end = text->data() + text->size();
    const auto parsed = std::from_chars(text->data() + 1, end, number);
    return parsed.ec == std::errc{} && parsed.ptr == end ? ResourceId(number) : id;
}

bool sameId(const ResourceId& a, const ResourceId& b) {
    const ResourceId x = normal(a), y = normal(b);
    const auto *textX = std::get_if<std::string>(&x), *textY = std::get_if<std::string>(&y);
    return textX && textY ? same(*textX, *textY) : x == y;
}

bool standsBefore(const ResourceId& a, const ResourceId& b) {
    const ResourceId x = normal(a), y = normal(b);
    const auto *textX = std::get_if<std::string>(&x), *textY = std::get_if<std::string>(&y);
    return textX && textY ? before(*textX, *textY) : x.index() != y.index() ? textX != nullptr : x < y;
}

std::string_view baseName(std::string_view path) {
    return path.substr(path.find_last_of("\\/:") + 1);
}

}  // namespace

ProgramFile& ProgramFile::add(const ResourceId& type, const ResourceId& name, Bytes bytes) {
    auto place = std::ranges::find_if(types_, [&](const Type& t) { return !standsBefore(t.id, type); });
    if (place == types_.end() || !sameId(place->id, type)) place = types_.insert(place, Type{normal(type), {}});
    auto& resources = place->resources;
    auto spot = std::ranges::find_if(resources, [&](const Resource& r) { return !standsBefore(r.name, name); });
    if (spot == resources.end() || !sameId(spot->name, name)) spot = resources.insert(spot, {normal(name), {}});
    spot->bytes = std::move(bytes);
    return *this;
}

ProgramFile& ProgramFile::addString(std::uint32_t number, std::string text) {
    strings_[number] = std::move(text);
    Bytes block;
    for (std::uint32_t n = number / 16 * 16; n < number / 16 * 16 + 16; ++n) {
        const auto found = strings_.find(n);
        const std::string_view stored = found == strings_.end() ? std::string_view() : found->second;
        block += {static_cast<std::uint8_t>(stored.size()), static_cast<std::uint8_t>(stored.size() >> 8)};
        for (const char c : stored) block += {static_cast<std::uint8_t>(c), 0};
    }
    return add(RtString, static_cast<std::uint16_t>(number / 16 + 1), std::move(block));
}

const ProgramFile::Type* ProgramFile::find(const ResourceId& type) const {
    const auto place = std::ranges::find_if(types_, [&](const Type& t) { return sameId(t.id, type); });
    return place == types_.end() ? nullptr : &*place;
}

ProgramFile& Modules::add(const std::string& path) {
    files_.addFile(path, "MZ");
    return programs_[fold(path)];
}

const ProgramFile* Modules::find(const std::string& file) const {
    const std::string wanted = fold(file);
    const bool hasPath = wanted.find_first_of("\\/:") != std::string::npos;
    for (const auto& [path, program] : programs_)
        if (path == wanted || (!hasPath && baseName(path) == wanted)) return &program;
    return nullptr;
}

std::uintptr_t Modules::fail(Result code) {
    lastError_ = code;
    return 0;
}

const ProgramFile* Modules::module(Module module) {
    const auto found = loaded_.find(module);
    if (found != loaded_.end()) return found->second.get();
    fail(InvalidHandle);
    return nullptr;
}

Module Modules::LoadLibraryExA(const std::string& file) {
    if (const auto code = watch.before("LoadLibraryExA")) return fail(*code);
    const Watch::Pause pause(files_.watch);
    std::uint32_t bits = 0;
    const ProgramFile* program = find(file);
    if (!program) return fail(files_.attributes(file, bits) == Success ? BadExeFormat : FileNotFound);
    next_ += 0x10000;
    loaded_[next_] = std::make_unique<const ProgramFile>(*program);
    return next_;
}

void Modules::FreeLibrary(Module module) {
    (void)watch.before("FreeLibrary");
    loaded_.erase(module);
}

ResourceInfo Modules::FindResourceA(Module handle, const ResourceId& name, const ResourceId& type) {
    if (const auto code = watch.before("FindResourceA")) return fail(*code);
    const ProgramFile* program = module(handle);
    if (!program) return 0;
    if (program->types().empty()) return fail(NoSuchResource);
    const ProgramFile::Type* found = program->find(type);
    if (!found) return fail(NoResourceType);
    for (const ProgramFile::Resource& resource : found->resources)
        if (sameId(resource.name, name)) return reinterpret_cast<ResourceInfo>(&resource);
    return fail(NoResourceName);
}

ResourceData Modules::LoadResource(Module handle, ResourceInfo info) {
    if (const auto code = watch.before("LoadResource")) return fail(*code);
    return module(handle) && info ? info : fail(InvalidHandle);
}

std::span<const std::uint8_t> Modules::LockResource(Module handle, ResourceInfo info, ResourceData data) {
    if (const auto code = watch.before("LockResource")) return (fail(*code), std::span<const std::uint8_t>());
    if (!module(handle) || !info || data != info) {
        fail(InvalidHandle);
        return {};
    }
    const Bytes& bytes = reinterpret_cast<const ProgramFile::Resource*>(info)->bytes;
    return {bytes.data(), bytes.size()};
}

Result Modules::EnumResourceTypesA(Module handle, std::vector<ResourceId>& types) {
    if (const auto code = watch.before("EnumResourceTypesA")) return lastError_ = *code;
    const ProgramFile* program = module(handle);
    if (!program) return lastError_;
    if (program->types().empty()) return lastError_ = NoSuchResource;
    for (const ProgramFile::Type& type : program->types()) types.push_back(normal(type.id));
    return Success;
}

Result Modules::EnumResourceNamesA(Module handle, const ResourceId& type, std::vector<ResourceId>& names) {
    if (const auto code = watch.before("EnumResourceNamesA")) return lastError_ = *code;
    const ProgramFile* program = module(handle);
    if (!program) return lastError_;
    if (program->types().empty()) return lastError_ = NoSuchResource;
    const ProgramFile::Type* found = program->find(type);
    if (!found) return lastError_ = NoResourceType;
    for (const ProgramFile::Resource& resource : found->resources) names.push_back(normal(resource.name));
    return Success;
}

std::string Modules::LoadStringA(Module handle, std::uint32_t number) {
    if (const auto code = watch.before("LoadStringA")) return (fail(*code), "");
    const Watch::Pause pause(watch);
    const ResourceInfo info = FindResourceA(handle, stringBlockOf(number), RtString);
    const auto characters = stringInBlock(LockResource(handle, info, info), number);
    std::string text;
    for (std::size_t at = 0; characters && at < characters->size(); at += 2)
        text.push_back(static_cast<char>((*characters)[at]));
    return text;
}

std::uint32_t Modules::countIcons(const std::string& path) {
    if (watch.before("countIcons")) return 0;
    if (const ProgramFile* program = find(path)) {
        const ProgramFile::Type* groups = program->find(RtGroupIcon);
        return groups ? static_cast<std::uint32_t>(groups->resources.size()) : 0;
    }
    const Watch::Pause pause(files_.watch);
    std::string header;
    if (files_.read(path, header, 6) != Success || header.size() < 6) return 0;
    return header.starts_with(std::string_view("\0\0\1\0", 4)) ? 1 : 0;
}

IconHandle Modules::CreateIconFromResource(std::span<const std::uint8_t> image, int width, int height) {
    if (const auto code = watch.before("CreateIconFromResource")) return fail(*code);
    if (width <= 0 || height <= 0 || !iconLayout(image, true)) return fail(InvalidParameter);
    icons_.insert(++next_);
    return next_;
}

void Modules::DestroyIcon(IconHandle icon) {
    (void)watch.before("DestroyIcon");
    icons_.erase(icon);
}

std::string Modules::FormatMessageA(Result code) {
    if (watch.before("FormatMessageA")) return "";
    const struct {
        Result code;
        const char* text;
    } texts[] = {
        {Success, "The operation completed successfully."},
        {FileNotFound, "The system cannot find the file specified."},
        {PathNotFound, "The system cannot find the path specified."},
        {AccessDenied, "Access is denied."},
        {InvalidHandle, "The handle is invalid."},
        {InvalidParameter, "The parameter is incorrect."},
        {DiskFull, "There is not enough space on the disk."},
        {ModuleNotFound, "The specified module could not be found."},
        {BadExeFormat, "%1 is not a valid Win32 application."},
        {NoSuchResource, "The specified image file did not contain a resource section."},
        {NoResourceType, "The specified resource type cannot be found in the image file."},
        {NoResourceName, "The specified resource name cannot be found in the image file."},
    };
    for (const auto& entry : texts)
        if (entry.code == code) return entry.text;
    return "";
}

}  // namespace simulated
