#include "backup/Catalogue.h"

#include "backup/BackupFile.h"
#include "backup/ZoneFile.h"
#include "util/basSystem.h"
#include "util/characters.h"

namespace backup {

void forEachBackup(platform::Platform& platform, const std::string& folder, const std::string& pattern,
                   util::FunctionRef<void(const Listed& listed)> visit) {
    platform::Files& files = platform.files;
    platform::Files::Search search = 0;
    platform::FoundFile found;
    if (files.findFirst(folder + pattern, search, found) != platform::Success) return;
    struct Closer {
        platform::Files& files;
        platform::Files::Search search;
        ~Closer() { files.findClose(search); }
    } closer{files, search};
    do {
        if (found.attributes & platform::FileAttributeDirectory) continue;
        const std::string name = basSystem::TrimNull(found.name);
        // The system compares the pattern with the short names of files as well: "a.tvfold" is also "A~1.TVF".
        if (util::lower(name).ends_with(".tvf")) visit({name, folder + name, found.written});
    } while (files.findNext(search, found) == platform::Success);
}

std::string descriptionOfFile(platform::Platform& platform, const std::string& path) {
    // The first lines of a thousand backups, not a thousand backups. A longer one is read whole.
    constexpr std::size_t UsualFirstLine = 1024;
    std::string start = read(platform, path, UsualFirstLine);
    if (start.size() == UsualFirstLine && start.find_first_of("\r\n") == std::string::npos)
        start = read(platform, path);
    return descriptionOf(firstLineOf(start));
}

}  // namespace backup
