// Files of a system that is no Windows, which are only read.
#pragma once

#include "platform/Files.h"

namespace native {

class Files : public platform::Files {
public:
    using Result = platform::Result;

    Result findFirst(const std::string&, Search& search, platform::FoundFile&) override;
    Result findNext(Search, platform::FoundFile&) override { return platform::NoMoreItems; }
    void findClose(Search) override {}
    // Tells files from folders. Without reading: a pipe gives its bytes once.
    Result attributes(const std::string& path, std::uint32_t& bits) override;
    Result read(const std::string& path, std::string& bytes, std::size_t limit = Whole) override;
    Result create(const std::string&, std::string_view, std::uint32_t& written) override;
    Result append(const std::string&, std::string_view, std::uint32_t& written) override;
    Result remove(const std::string&) override { return platform::AccessDenied; }
    Result createFolder(const std::string&) override { return platform::AccessDenied; }
};

}  // namespace native
