#include "native/Files.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>

namespace native {

namespace {

struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

platform::Result Files::findFirst(const std::string&, Search& search, platform::FoundFile&) {
    search = 0;
    return platform::FileNotFound;
}

platform::Result Files::attributes(const std::string& path, std::uint32_t& bits) {
    std::error_code error;
    const std::filesystem::file_status found = std::filesystem::status(path, error);
    bits = std::filesystem::is_directory(found) ? platform::FileAttributeDirectory : 0;
    return std::filesystem::exists(found) ? platform::Success : platform::FileNotFound;
}

platform::Result Files::read(const std::string& path, std::string& bytes, std::size_t limit) {
    bytes.clear();
    const std::unique_ptr<std::FILE, Close> file(std::fopen(path.c_str(), "rb"));
    if (!file) return platform::FileNotFound;
    char block[16384];
    while (bytes.size() < limit) {
        const std::size_t got = std::fread(block, 1, std::min(sizeof block, limit - bytes.size()), file.get());
        if (got == 0) break;
        bytes.append(block, got);
    }
    return std::ferror(file.get()) ? platform::AccessDenied : platform::Success;
}

platform::Result Files::create(const std::string&, std::string_view, std::uint32_t& written) {
    written = 0;
    return platform::AccessDenied;
}

platform::Result Files::append(const std::string&, std::string_view, std::uint32_t& written) {
    written = 0;
    return platform::AccessDenied;
}

}  // namespace native
