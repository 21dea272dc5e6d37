// Restores a backup so that nothing is lost.
//
// The zones are copied into a backup of their own, deleted, and the registry editor imports the backup's export. When
// it has ended, or could not be started, what it did not bring is written by the program: neither a text that the
// editor misreads nor an editor that stops half-way costs a zone. Then the zones are counted. When all of the backup's
// are there the copy goes; otherwise the user may have the zones put back as they were, and the copy stays until they
// are.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "backup/ZonesExport.h"
#include "forms/Context.h"

namespace backup {

class Restoration {
public:
    explicit Restoration(forms::Context& context) : context_(context) {}
    ~Restoration() { abandon(); }
    Restoration(const Restoration&) = delete;
    Restoration& operator=(const Restoration&) = delete;

    // Begins to restore the backup of a zone file. False when the backup is refused, which the user has been told;
    // throws util::Error when the copy cannot be made. Nothing has been changed then.
    bool begin(const std::string& zoneFile);
    // From the beginning until the zones have been counted and the user's answer, if any, has been followed.
    bool importing() const { return job_ != nullptr; }
    // To be called now and then while importing. Goes on when the registry editor has ended.
    void followUp();
    // Forgets the import; the copy stays in the list of backups.
    void abandon();

private:
    struct Source {
        platform::Result code = platform::Success;  // of reading the export
        ZonesExport zones;
        // An editor is never started on an export that is there and was not looked through.
        bool mayBeImported() const;
    };
    struct Copy {
        std::string zoneFile;               // "" when there were no zones
        std::vector<ExportedZone> leftOut;  // values that its export does not carry
    };
    struct Job {
        std::string zoneFile;
        Source source;                  // of `zoneFile`, as it was when the import began
        Copy copy;                      // the zones as they were
        std::size_t wanted = 0;         // zones that the backup has
        std::vector<std::string> left;  // zones that could not be deleted
        platform::Launcher::Process editor = 0;
        bool puttingBack = false;  // `zoneFile` is the copy
        bool ending = false;       // the editor has ended
    };
    Source readSource(const std::string& zoneFile) const;
    std::size_t zonesWanted(const std::string& zoneFile, const Source& source) const;
    std::string editor() const;  // "" when there is none
    Copy copyZones(const std::string& zoneFile);
    void run(const std::string& editor, const std::string& exportFile);
    // Writes what is missing, and tells how many zones are there with everything that the backup has of them.
    std::size_t complete(const Job& job);
    void judge(const Job& job, std::size_t restored);
    void putBack(const Copy& copy);
    void removeBackup(const std::string& zoneFile);

    forms::Context& context_;
    std::unique_ptr<Job> job_;
};

}  // namespace backup
