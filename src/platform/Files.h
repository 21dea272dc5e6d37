// Files and folders, in whole-buffer calls that answer with the system's result codes.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "platform/Registry.h"
#include "platform/System.h"

namespace platform {

// One entry of a folder search. Attribute bits are those of winnt.h.
struct FoundFile {
    std::string name;  // without folder
    std::uint32_t attributes = 0;
    LocalTime written;  // last
};
inline constexpr std::uint32_t FileAttributeDirectory = 16;

class Files {
public:
    using Search = std::uint32_t;  // 0 is no search
    static constexpr std::size_t Whole = std::numeric_limits<std::size_t>::max();

    virtual ~Files() = default;

    // `pattern` is folder and wildcard ("C:\\Backups\\*.tvf"). FileNotFound when nothing matches; then no search
    // is open. Entries come in the file system's own order.
    virtual Result findFirst(const std::string& pattern, Search& search, FoundFile& found) = 0;
    // NoMoreItems (or another code) at the end.
    virtual Result findNext(Search search, FoundFile& found) = 0;
    virtual void findClose(Search search) = 0;

    // FileNotFound or PathNotFound when there is nothing of that name.
    virtual Result attributes(const std::string& path, std::uint32_t& bits) = 0;

    // Reads the file, or its first `limit` bytes.
    virtual Result read(const std::string& path, std::string& bytes, std::size_t limit = Whole) = 0;
    // Creates the file, or empties it, and writes `bytes`. `written` is what arrived: all of it, unless
    // the call failed.
    virtual Result create(const std::string& path, std::string_view bytes, std::uint32_t& written) = 0;
    // Writes `bytes` at the end of the file, which is created when absent.
    virtual Result append(const std::string& path, std::string_view bytes, std::uint32_t& written) = 0;
    virtual Result remove(const std::string& path) = 0;
    // One level. AlreadyExists when something of that name is there.
    virtual Result createFolder(const std::string& path) = 0;
};

}  // namespace platform
