#include "win32/Files.h"

#include <windows.h>

#include <algorithm>

namespace win32 {

using namespace platform;

namespace {

static_assert(FileAttributeDirectory == FILE_ATTRIBUTE_DIRECTORY);

// An open file, closed on every way out.
class File {
public:
    File(const std::string& path, DWORD access, DWORD share, DWORD disposition)
        : handle_(CreateFileA(path.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~File() {
        if (isOpen()) CloseHandle(handle_);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE handle() const { return handle_; }

private:
    HANDLE handle_;
};

Result failed() {
    const DWORD code = GetLastError();
    return code == ERROR_SUCCESS ? Result{InvalidParameter} : code;
}

// A full disk does not always fail the call: it may just write less.
Result write(const File& file, std::string_view bytes, std::uint32_t& written) {
    DWORD count = 0;
    const bool ok =
        bytes.empty() || WriteFile(file.handle(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
    const Result code = ok ? Success : failed();
    written = count;
    return ok && count < bytes.size() ? DiskFull : code;
}

FoundFile portable(const WIN32_FIND_DATAA& data) {
    FILETIME local = {};
    SYSTEMTIME time = {};
    FileTimeToLocalFileTime(&data.ftLastWriteTime, &local);
    FileTimeToSystemTime(&local, &time);
    return {data.cFileName,
            data.dwFileAttributes,
            {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond}};
}

}  // namespace

Files::~Files() {
    for (const auto& [search, handle] : searches_) FindClose(handle);
}

Files::Searches::iterator Files::find(Search search) {
    return std::find_if(searches_.begin(), searches_.end(), [&](const auto& open) { return open.first == search; });
}

Result Files::findFirst(const std::string& pattern, Search& search, FoundFile& found) {
    search = 0;
    WIN32_FIND_DATAA data;
    const HANDLE handle = FindFirstFileA(pattern.c_str(), &data);
    if (handle == INVALID_HANDLE_VALUE) return failed();
    found = portable(data);
    searches_.emplace_back(++next_, handle);
    search = next_;
    return Success;
}

Result Files::findNext(Search search, FoundFile& found) {
    const auto open = find(search);
    if (open == searches_.end()) return InvalidHandle;
    WIN32_FIND_DATAA data;
    if (!FindNextFileA(open->second, &data)) {
        const Result code = failed();
        return code == ERROR_NO_MORE_FILES ? Result{NoMoreItems} : code;
    }
    found = portable(data);
    return Success;
}

void Files::findClose(Search search) {
    const auto open = find(search);
    if (open == searches_.end()) return;
    FindClose(open->second);
    searches_.erase(open);
}

Result Files::attributes(const std::string& path, std::uint32_t& bits) {
    const DWORD found = GetFileAttributesA(path.c_str());
    if (found == 0xFFFFFFFF) return failed();
    bits = found;
    return Success;
}

Result Files::read(const std::string& path, std::string& bytes, std::size_t limit) {
    bytes.clear();
    const File file(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
    if (!file.isOpen()) return failed();
    DWORD high = 0;
    const DWORD low = GetFileSize(file.handle(), &high);
    // What does not fit in memory is not worth trying: the largest file of the program's own is some kilobytes.
    constexpr DWORD mostBytes = 0x40000000;
    const std::size_t size = std::min<std::size_t>(high != 0 ? mostBytes + 1 : low, limit);
    if (size > mostBytes) return OutOfMemory;
    bytes.resize(size);
    std::size_t have = 0;
    while (have < size) {
        DWORD count = 0;
        if (!ReadFile(file.handle(), bytes.data() + have, static_cast<DWORD>(size - have), &count, nullptr)) {
            const Result code = failed();
            bytes.clear();
            return code;
        }
        if (count == 0) break;  // another program has truncated the file
        have += count;
    }
    bytes.resize(have);
    return Success;
}

Result Files::create(const std::string& path, std::string_view bytes, std::uint32_t& written) {
    written = 0;
    const File file(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS);
    return file.isOpen() ? write(file, bytes, written) : failed();
}

Result Files::append(const std::string& path, std::string_view bytes, std::uint32_t& written) {
    written = 0;
    const File file(path, GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS);
    if (!file.isOpen()) return failed();
    LONG high = 0;  // asked for, so that a low part of all ones is no failure
    SetLastError(ERROR_SUCCESS);
    if (SetFilePointer(file.handle(), 0, &high, FILE_END) == 0xFFFFFFFF && GetLastError() != ERROR_SUCCESS)
        return failed();
    return write(file, bytes, written);
}

Result Files::remove(const std::string& path) {
    return DeleteFileA(path.c_str()) ? Success : failed();
}

Result Files::createFolder(const std::string& path) {
    return CreateDirectoryA(path.c_str(), nullptr) ? Success : failed();
}

}  // namespace win32
