// The backups folder, and the text files a backup is made of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Platform.h"
#include "registry/clsRegistry.h"

namespace backup {

// "Backups" beside the program, with a trailing backslash.
std::string folder(platform::Platform& platform);

// The name both files of a backup share: month-day-year, a blank, two digits of hour, then minute and second without
// leading zeros. 14:05:07 on 4 June 2001 is "6-4-2001 1457", and so is 14:50:07: the name is short, and not unique.
std::string baseName(const platform::LocalTime& time);

// A time as people read it: "6-4-2001 14:05:07".
std::string timeText(const platform::LocalTime& time);

// The name of the first second from now on that no file of a backup has. Throws util::Error when there is none.
std::string freeName(platform::Platform& platform);

// The registry export that belongs to a zone backup: the same path with "reg" instead of its last three letters.
std::string partnerOf(const std::string& zoneFile);

// Deletes a file, or throws util::Error.
void remove(platform::Platform& platform, const std::string& path);

// Reads a file, or its first `limit` bytes, or throws util::Error.
std::string read(platform::Platform& platform, const std::string& path, std::size_t limit = platform::Files::Whole);

// The names of the zones' keys in the registry's order. Throws util::Error when they cannot be listed.
std::vector<std::string> listZones(clsRegistry& registry);

// Throws util::Error when the key of a zone that is being backed up was not found: it has gone since they were listed.
void expectZone(Found found, const std::string& zone);

// A text file being appended to, a few tens of kilobytes at a time. Every line ends in CR LF.
//
// What the disk refuses throws util::Error; what was written before stays.
class BackupFile {
public:
    // A file in the backups folder, which is made when it is missing; what goes into it is read from `registry`.
    BackupFile(platform::Platform& platform, const clsRegistry& registry, const std::string& name);
    // Writes what is left, so that an error elsewhere loses no line. Nobody can be told when that fails.
    ~BackupFile();
    BackupFile(const BackupFile&) = delete;
    BackupFile& operator=(const BackupFile&) = delete;

    void line(std::string_view text);
    // A zone is complete: a good moment to write what has been collected, when it is enough.
    void endOfZone();
    // Throws also when the registry has failed since the file was begun: something is missing from it.
    void close();

private:
    void writePending();
    platform::Result append(std::uint32_t& written);

    platform::Platform& platform_;
    clsRegistry::FailureWatch watch_;
    std::string path_;
    std::string pending_;
};

}  // namespace backup
