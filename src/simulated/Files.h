// Files and folders in memory, under Windows paths. Names are found whatever their case and kept as they were made.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/Files.h"
#include "simulated/Watch.h"

namespace simulated {

class Files : public platform::Files {
public:
    using Result = platform::Result;

    Files();
    ~Files() override;
    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;

    Watch watch;
    // For tests to set up. Missing parent folders are made; an existing file is replaced.
    void addFolder(const std::string& path);
    void addFile(const std::string& path, std::string_view bytes);
    int openSearches() const { return static_cast<int>(searches_.size()); }
    platform::LocalTime lastWritten{2001, 6, 4, 14, 5, 7};  // when all files were

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
    struct Node;
    struct Place;
    using Matches = std::vector<platform::FoundFile>;

    Place place(const std::string& path) const;
    Result fileToWrite(const std::string& path, Node*& file);

    std::unique_ptr<Node> root_;  // holds the drives
    std::map<Search, Matches> searches_;
    Search next_ = 0;
};

}  // namespace simulated
