#include "backup/BackupFile.h"

#include <algorithm>

#include "registry/clsRegistry.h"
#include "util/Error.h"
#include "util/basSystem.h"
#include "util/numbers.h"
#include "util/systemText.h"
#include "zones/zones.h"

namespace backup {

namespace {

constexpr std::size_t WorthWriting = std::size_t{32} * 1024;

[[noreturn]] void fail(platform::Platform& platform, util::ErrorNumber number, const std::string& what,
                       platform::Result code, const std::string& path) {
    throw util::Error(number, "backup", what + " " + util::systemText(platform, code, path));
}

util::ErrorNumber numberOf(platform::Result code) {
    const bool missing = code == platform::FileNotFound || code == platform::PathNotFound;
    return missing ? util::NumberFileNotFound : util::NumberFileAccess;
}

int daysIn(int month, int year) {
    if (month == 2) return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

void toNextSecond(platform::LocalTime& time) {
    if (++time.second < 60) return;
    time.second = 0;
    if (++time.minute < 60) return;
    time.minute = 0;
    if (++time.hour < 24) return;
    time.hour = 0;
    if (++time.day <= daysIn(time.month, time.year)) return;
    time.day = 1;
    if (++time.month <= 12) return;
    time.month = 1;
    ++time.year;
}

}  // namespace

std::string folder(platform::Platform& platform) {
    return basSystem::QualifyPath(platform.system.programFolder()) + "Backups\\";
}

std::string baseName(const platform::LocalTime& time) {
    const auto digits = [](int number) { return util::toDecimal(static_cast<std::uint32_t>(number)); };
    return digits(time.month) + '-' + digits(time.day) + '-' + util::toDigits(time.year, 4) + ' ' +
           util::toDigits(time.hour, 2) + digits(time.minute) + digits(time.second);
}

std::string timeText(const platform::LocalTime& time) {
    return util::toDecimal(time.month) + '-' + util::toDecimal(time.day) + '-' + util::toDigits(time.year, 4) + ' ' +
           util::toDigits(time.hour, 2) + ':' + util::toDigits(time.minute, 2) + ':' + util::toDigits(time.second, 2);
}

std::string freeName(platform::Platform& platform) {
    constexpr int Tries = 10000;  // some hours of the clock
    platform::LocalTime time = platform.system.GetLocalTime();
    for (int i = 0; i < Tries; ++i, toNextSecond(time)) {
        std::string name = baseName(time);
        const std::string path = folder(platform) + name;
        if (basSystem::IsMissing(platform, path + ".tvf") && basSystem::IsMissing(platform, path + ".reg")) return name;
    }
    throw util::Error(util::NumberFileAccess, "backup",
                      "The folder \"" + folder(platform) + "\" has no room for another name.");
}

std::string partnerOf(const std::string& zoneFile) {
    return zoneFile.substr(0, zoneFile.size() - std::min<std::size_t>(3, zoneFile.size())) + "reg";
}

void remove(platform::Platform& platform, const std::string& path) {
    const platform::Result code = platform.files.remove(path);
    if (code != platform::Success) fail(platform, numberOf(code), "\"" + path + "\" cannot be deleted.", code, path);
}

std::string read(platform::Platform& platform, const std::string& path, std::size_t limit) {
    std::string bytes;
    const platform::Result code = platform.files.read(path, bytes, limit);
    if (code != platform::Success) fail(platform, numberOf(code), "\"" + path + "\" cannot be read.", code, path);
    return bytes;
}

std::vector<std::string> listZones(clsRegistry& registry) {
    const clsRegistry::FailureWatch watch(registry);
    zones::goToZones(registry);
    auto names = registry.DirKey();
    if (watch.failed())
        throw util::Error(util::NumberFileAccess, "backup", "The zones could not be read from the registry.");
    return names ? *std::move(names) : std::vector<std::string>();
}

void expectZone(Found found, const std::string& zone) {
    if (found == Found::Absent)
        throw util::Error(util::NumberFileNotFound, "backup",
                          "The zone \"" + zone + "\" is gone. The backup is incomplete.");
}

BackupFile::BackupFile(platform::Platform& platform, const clsRegistry& registry, const std::string& name)
    : platform_(platform), watch_(registry), path_(folder(platform) + name) {
    const std::string backups = basSystem::UnQualifyPath(folder(platform));
    if (const platform::Result code = basSystem::MakeFolder(platform, backups); code == platform::AlreadyExists)
        throw util::Error(util::NumberFileAccess, "backup",
                          "The folder \"" + backups + "\" cannot be made: a file of that name is in the way.");
    else if (code != platform::Success)
        fail(platform, util::NumberFileAccess, "The folder \"" + backups + "\" cannot be made.", code, backups);
}

BackupFile::~BackupFile() {
    std::uint32_t written = 0;
    if (!pending_.empty()) append(written);
}

void BackupFile::line(std::string_view text) {
    pending_.append(text).append("\r\n");
}

void BackupFile::endOfZone() {
    if (pending_.size() >= WorthWriting) writePending();
}

void BackupFile::writePending() {
    if (pending_.empty()) return;
    std::uint32_t written = 0;
    const std::size_t size = pending_.size();
    const platform::Result code = append(written);
    pending_.clear();  // also what did not arrive: the file must not go on after a gap
    if (code != platform::Success || written < size)
        fail(platform_, util::NumberFileAccess, "The backup \"" + path_ + "\" is incomplete.",
             code != platform::Success ? code : platform::DiskFull, path_);
}

void BackupFile::close() {
    writePending();
    if (!watch_.failed()) return;
    throw util::Error(util::NumberFileAccess, "backup",
                      "Part of the registry could not be read. The backup \"" + path_ + "\" is incomplete.");
}

platform::Result BackupFile::append(std::uint32_t& written) {
    return platform_.files.append(path_, pending_, written);
}

}  // namespace backup
