#include "backup/Restoration.h"

#include <algorithm>

#include "backup/BackupFile.h"
#include "backup/ExportFile.h"
#include "backup/ZoneFile.h"
#include "backup/ZoneFileWriter.h"
#include "backup/ZoneMending.h"
#include "errors/messages.h"
#include "util/Error.h"
#include "util/basSystem.h"
#include "util/characters.h"
#include "util/numbers.h"
#include "zones/zones.h"

namespace backup {

namespace {

std::string decimal(std::size_t number) {
    return util::toDecimal(static_cast<std::uint32_t>(number));
}

bool contains(const std::vector<std::string>& names, const std::string& name) {
    return std::any_of(names.begin(), names.end(), [&](const auto& n) { return util::equalFolded(n, name); });
}

}  // namespace

bool Restoration::Source::mayBeImported() const {
    const bool missing = code == platform::FileNotFound || code == platform::PathNotFound;
    return missing || (code == platform::Success && !zones.forbidden);
}

bool Restoration::begin(const std::string& zoneFile) {
    if (importing()) return false;
    platform::Platform& platform = context_.platform;
    const std::string exportFile = partnerOf(zoneFile);
    Source source = readSource(zoneFile);
    if (source.zones.forbidden) {
        errors::tell(platform, "The registry export \"" + exportFile +
                                   "\" would change more than the zones: it names \"" + *source.zones.forbidden +
                                   "\". Nothing has been restored.");
        return false;
    }
    const std::size_t wanted = zonesWanted(zoneFile, source);
    if (wanted == 0) {
        errors::tell(platform, "This backup holds no zones. Nothing has been restored.");
        return false;
    }
    const std::string program = editor();
    if (program.empty() && source.zones.zones.empty()) {
        errors::tell(platform, "The registry editor is missing, and the registry export \"" + exportFile +
                                   "\" cannot be read. Nothing has been restored.");
        return false;
    }
    // From here on the import goes on whatever fails: the job is there before anything is deleted.
    Copy copy = copyZones(zoneFile);
    job_ = std::make_unique<Job>();
    job_->zoneFile = zoneFile;
    job_->copy = std::move(copy);
    job_->wanted = wanted;
    job_->source = std::move(source);
    run(program, exportFile);
    return true;
}

Restoration::Source Restoration::readSource(const std::string& zoneFile) const {
    Source source;
    std::string bytes;
    source.code = context_.platform.files.read(partnerOf(zoneFile), bytes);
    if (source.code == platform::Success) source.zones = readZonesExport(bytes);
    return source;
}

// The zone file tells how many zones the backup has, though the export may have been cut off; so may the zone file.
std::size_t Restoration::zonesWanted(const std::string& zoneFile, const Source& source) const {
    std::string bytes;
    context_.platform.files.read(zoneFile, bytes);
    return std::max(countZones(splitLines(bytes)), source.zones.zones.size());
}

// By its full path: a file of that name beside the program is never run.
std::string Restoration::editor() const {
    const std::string folder = basSystem::GetWinDir(context_.platform);
    const std::string path = basSystem::QualifyPath(folder) + "regedit.exe";
    return !folder.empty() && basSystem::FileExists(context_.platform, path) ? path : std::string();
}

Restoration::Copy Restoration::copyZones(const std::string& zoneFile) {
    platform::Platform& platform = context_.platform;
    const std::vector<std::string> zones = listZones(context_.registry);
    if (zones.empty()) return {};
    const std::string description = descriptionOf(firstLineOf(read(platform, zoneFile)));
    const std::string name = freeName(platform);
    Copy copy{folder(platform) + name + ".tvf", {}};
    try {
        writeExport(context_, name, zones, [] {});
        writeZones(context_, name, "Zones before restoring \"" + description + "\"", zones);
        copy.leftOut = valuesLeftOut(context_.registry, zones);
        if (listZones(context_.registry) != zones)
            throw util::Error(util::NumberInternal, "backup",
                              "The zones have changed while they were being copied. Nothing has been restored.");
    } catch (...) {
        // Half a copy would be listed like a whole one.
        platform.files.remove(copy.zoneFile);
        platform.files.remove(partnerOf(copy.zoneFile));
        throw;
    }
    return copy;
}

// `editor` may be "", then nothing is started and the program does all.
void Restoration::run(const std::string& editor, const std::string& exportFile) {
    platform::Platform& platform = context_.platform;
    const clsRegistry::FailureWatch watch(context_.registry);
    zones::goToZones(context_.registry);
    if (!job_->puttingBack || context_.registry.HasKeys()) context_.registry.DeleteZone(zones::ZonesKey);
    zones::goToZones(context_.registry);
    job_->left = context_.registry.DirKey().value_or(std::vector<std::string>());
    const bool deleted = !watch.failed() && job_->left.empty();

    if (!editor.empty() && job_->source.mayBeImported())
        platform.launcher.start(editor, "/s \"" + exportFile + "\"", job_->editor);
    if (context_.mainWindow) context_.mainWindow->ReloadAsItIs();
    if (!deleted)
        errors::tell(platform, "The registry refused to delete some zones. What they hold beyond the backup stays.");
}

void Restoration::followUp() {
    if (!job_ || job_->ending || context_.platform.launcher.running(job_->editor)) return;
    // The job stays until the end: while the user is being asked, nothing else may begin.
    struct End {
        Restoration& self;
        ~End() {
            if (self.job_ && self.job_->ending) self.abandon();
        }
    } end{*this};
    job_->ending = true;
    const Job job = *job_;
    const std::size_t restored = complete(job);
    if (context_.mainWindow) context_.mainWindow->ReloadAsItIs();
    judge(job, restored);
}

void Restoration::abandon() {
    if (job_ && job_->editor != 0) context_.platform.launcher.close(job_->editor);
    job_.reset();
}

std::size_t Restoration::complete(const Job& job) {
    // What was read before the import counts: a file that cannot be read by now costs nothing.
    const Source source = job.source.code == platform::Success ? job.source : readSource(job.zoneFile);
    std::size_t restored = 0;
    mendZonesKey(context_.registry, source.zones.values);
    for (const ExportedZone& zone : source.zones.zones)
        if (mendZone(context_.registry, zone, !contains(job.left, zone.name)) && zone.whole) ++restored;
    return restored;
}

void Restoration::judge(const Job& job, std::size_t restored) {
    if (restored >= job.wanted) {
        if (!job.copy.zoneFile.empty()) removeBackup(job.copy.zoneFile);
        return;
    }
    const std::string those = "Only " + decimal(restored) + " of the " + decimal(job.wanted) + " zones ";
    if (job.puttingBack) {
        errors::tell(context_.platform, those + "could be put back. Their backup is kept.");
    } else if (job.copy.zoneFile.empty()) {
        errors::tell(context_.platform, those + "of this backup could be restored.");
    } else if (errors::ask(context_.platform, those + "of this backup could be restored. Put the zones back as they "
                                                      "were before?") == ui::Answer::Yes) {
        putBack(job.copy);
    }
}

void Restoration::putBack(const Copy& copy) {
    abandon();
    job_ = std::make_unique<Job>();
    job_->zoneFile = copy.zoneFile;
    job_->copy = copy;
    job_->puttingBack = true;
    job_->source = readSource(copy.zoneFile);
    job_->wanted = zonesWanted(copy.zoneFile, job_->source);
    addValues(job_->source.zones.zones, copy.leftOut);
    // With texts in it that an editor would take for other keys it is not imported; the program reads them right.
    run(editor(), partnerOf(copy.zoneFile));
}

// The zone file first: without it the backup is no longer listed, whatever becomes of the other.
void Restoration::removeBackup(const std::string& zoneFile) {
    remove(context_.platform, zoneFile);
    remove(context_.platform, partnerOf(zoneFile));
}

}  // namespace backup
