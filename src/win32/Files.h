// The system's files and folders.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "platform/Files.h"

namespace win32 {

class Files : public platform::Files {
public:
    using Result = platform::Result;

    Files() = default;
    ~Files() override;
    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;

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
    using Searches = std::vector<std::pair<Search, void*>>;
    Searches::iterator find(Search search);

    Searches searches_;  // the system's handles have 64 bits
    Search next_ = 0;
};

}  // namespace win32
