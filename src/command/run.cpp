#include "command/run.h"

#include <algorithm>
#include <memory>

#include "backup/BackupFile.h"
#include "backup/Catalogue.h"
#include "backup/ExportFile.h"
#include "backup/Restoration.h"
#include "backup/ZoneFile.h"
#include "backup/ZoneFileWriter.h"
#include "command/ConsoleDesktop.h"
#include "command/ExportedRegistry.h"
#include "command/Request.h"
#include "command/Table.h"
#include "command/Zone.h"
#include "command/differences.h"
#include "mail/identities.h"
#include "util/Error.h"
#include "util/application.h"
#include "util/basSystem.h"
#include "util/characters.h"
#include "util/numbers.h"
#include "util/trace.h"
#include "zones/siteMap.h"
#include "zones/zones.h"

namespace command {

namespace {

using platform::Platform;

[[noreturn]] void fail(util::ErrorNumber number, const std::string& sentence) {
    throw util::Error(number, "command", sentence);
}

Platform with(const Platform& machine, platform::Registry& registry, ui::Desktop& desktop) {
    return {registry,       machine.files,   machine.modules,  machine.memory,
            machine.system, machine.browser, machine.launcher, desktop};
}

// One registry that zones are read from: the machine's, or an export's.
struct Source {
    std::unique_ptr<ExportedRegistry> exported;
    Platform platform;
    clsRegistry session{platform};

    Source(std::unique_ptr<ExportedRegistry> registry, const Platform& machine, ui::Desktop& desktop)
        : exported(std::move(registry)), platform(with(machine, exported ? *exported : machine.registry, desktop)) {}
};

// The text of the first error that was trapped: by the end Err has lost it.
std::optional<std::string> trapped;
void keepTrapped() {
    if (!trapped) trapped = basErrors::Err.description;
}

class Program {
public:
    Program(const Machine& machine, platform::Console& console, const Request& request)
        : machine_(machine), console_(console), request_(request), desktop_(console, request.yes) {}

    int run() {
        switch (request_.command) {
            case Command::Zones:
                return listZones();
            case Command::Show:
                return showZone();
            case Command::Sites:
                return listSites();
            case Command::Mail:
                return listIdentities();
            case Command::Diff:
                return compare();
            case Command::Backup:
                return makeBackup();
            case Command::Backups:
                return listBackups();
            case Command::Restore:
                return restoreBackup();
            case Command::Help:
                print(request_.helpFor ? helpText(*request_.helpFor) : helpText());
                return Done;
            case Command::Version:
                print(std::string("TavimorCmd ") + AppVersion + "\n");
                return Done;
        }
        return Failed;
    }

private:
    void print(const std::string& text) {
        if (!console_.print(text))
            fail(util::NumberFileAccess, "Not all of the output could be written: is there room where it goes?");
    }
    void print(const Table& table) {
        const auto width = [&](std::string_view text) { return console_.width(text); };
        print(request_.csv ? table.asCsv() : table.inColumns(width));
    }

    // The registry that --from names, or the machine's.
    std::unique_ptr<Source> source() {
        if (request_.from) return load(*request_.from);
        if (!machine_.hasRegistry)
            fail(util::NumberFileNotFound, "This system has no zones; read an export with --from EXPORT.reg.");
        return std::make_unique<Source>(nullptr, machine_.platform, desktop_);
    }

    std::unique_ptr<Source> load(const std::string& path) {
        auto registry = std::make_unique<ExportedRegistry>();
        const std::string wrong = registry->load(backup::read(machine_.platform, path), console_);
        if (!wrong.empty()) fail(util::NumberFileAccess, "\"" + path + "\", " + wrong);
        return std::make_unique<Source>(std::move(registry), machine_.platform, desktop_);
    }

    static Zone zoneOf(std::vector<Zone> zones, const std::string& key, const std::string& where) {
        for (Zone& zone : zones)
            if (util::equalFolded(zone.key, key)) return std::move(zone);
        fail(util::NumberFileNotFound, "There is no zone " + key + " in " + where + ". TavimorCmd zones lists them.");
    }

    // What was exported without its zones does not have none.
    static std::vector<Zone> zonesIn(Source& from, const std::string& where) {
        std::vector<Zone> zones = readZones(from.session);
        if (zones.empty() && from.exported)
            fail(util::NumberFileNotFound,
                 "There are no zones in " + where + ", which would be below \"" + zones::ZonesKey + "\".");
        return zones;
    }

    // For what was read without any description of the settings.
    void addMachinesWords(Words& words) {
        if (!words.groups().empty() || !machine_.hasRegistry) return;
        Source machine(nullptr, machine_.platform, desktop_);
        words.add(machine.platform, machine.session, false);
    }

    std::string where() const { return request_.from ? "\"" + *request_.from + "\"" : "the registry"; }

    int listZones() {
        const auto from = source();
        const Words words;
        Table table{{"Zone", "Name", "Current", "Minimum", "Recommended", "Flags"}, {}};
        for (const Zone& zone : zonesIn(*from, where())) {
            std::vector<std::string> row{zone.key};
            for (const char* value : {zones::value::DisplayName, zones::value::CurrentLevel, zones::value::MinLevel,
                                      zones::value::RecommendedLevel, zones::value::Flags})
                row.push_back(words.meaning(value, zone.find(value)));
            table.rows.push_back(std::move(row));
        }
        print(table);
        return Done;
    }

    int showZone() {
        const auto from = source();
        const Zone zone = zoneOf(zonesIn(*from, where()), request_.operands.front(), where());
        Words words;
        words.add(from->platform, from->session, from->exported != nullptr);
        addMachinesWords(words);

        Table table{{"Group", "Setting", "Value"}, {{"Zone", "Number", zone.key}}};
        const auto add = [&](const std::string& group, std::string caption, const char* value) {
            table.rows.push_back({group, std::move(caption), words.meaning(value, zone.find(value))});
        };
        for (const NamedValue& text : ZoneTexts) add("Zone", text.caption, text.value);
        for (const NamedValue& level : ZoneLevels) add("Zone", level.caption, level.value);
        addFlags(zone, words, table);
        for (const SettingGroup& group : words.groups())
            for (const Setting& setting : group.settings) add(group.text, setting.caption, setting.valueName.c_str());
        for (const ListedValue& value : zone.values)
            if (isSettingName(value.name) && !words.settingOf(value.name) && !value.name.empty())
                table.rows.push_back({"Other settings", value.name, words.meaning(value.name, &value)});
        print(request_.csv ? table.asCsv() : table.inGroups());
        return Done;
    }

    static void addFlags(const Zone& zone, const Words& words, Table& table) {
        const ListedValue* flags = zone.find(zones::value::Flags);
        table.rows.push_back({"Flags", "Number", words.meaning(zones::value::Flags, flags)});
        if (!flags || !flags->plainNumber) return;
        for (std::size_t i = 0; i < zones::FlagCaptions.size(); ++i)
            table.rows.push_back(
                {"Flags", std::string(util::trimmed(zones::FlagCaptions[i])), flags->number >> i & 1 ? "yes" : "no"});
    }

    int listSites() {
        const auto from = source();
        clsRegistry& registry = from->session;
        const std::vector<Zone> known = readZones(registry);
        const auto only = request_.operands.empty() ? std::nullopt : util::wholeNumber(request_.operands.front());
        const zones::SiteMap map = zones::readSiteMap(registry);
        if (!map.unreadable.empty())
            fail(util::NumberFileAccess, "The registry key \"" + map.unreadable + "\" cannot be read.");
        Table table{{"Site", "Zone", "Name"}, {}};
        for (const zones::SiteEntry& entry : map.entries) {
            if (only && entry.zone != *only) continue;
            const std::string number = util::toDecimal(entry.zone);
            const auto zone = std::find_if(known.begin(), known.end(), [&](const Zone& z) { return z.key == number; });
            table.rows.push_back(
                {siteText(registry, entry), number, zone == known.end() ? "(no such zone)" : zone->name()});
        }
        print(table);
        return Done;
    }

    static std::string siteText(clsRegistry& registry, const zones::SiteEntry& entry) {
        const std::string last = entry.key.substr(entry.key.rfind('\\') + 1);
        if (!entry.host.empty()) return entry.value + "://" + entry.host + "." + entry.domain;
        if (entry.key == zones::ProtocolDefaultsKey) return entry.value + ": (all other sites)";
        if (!entry.key.starts_with(zones::RangesKey)) return entry.value + "://" + last;
        registry.goTo(entry.key);
        const TextReading range = registry.readText(":Range");
        return entry.value + "://" + (range.found == Found::Present ? range.text : last);
    }

    int listIdentities() {
        const auto from = source();
        clsRegistry& registry = from->session;
        const std::vector<Zone> known = readZones(registry);
        const clsRegistry::FailureWatch watch(registry);
        Table table{{"Identity", "Zone", "Name"}, {}};
        registry.goTo(mail::IdentitiesKey);
        for (const std::string& key : registry.DirKey().value_or(std::vector<std::string>())) {
            registry.goTo(std::string(mail::IdentitiesKey) + "\\" + key);
            const TextReading name = registry.readText(mail::UserName);
            mail::goToSettings(registry, mail::settingsPath(key));
            const NumberReading zone = registry.readNumber(mail::SecurityZone);
            const auto found = std::find_if(known.begin(), known.end(),
                                            [&](const Zone& z) { return zone.present() && z.key == zone.display; });
            table.rows.push_back({name.empty() ? key : name.text, zone.present() ? zone.display : Missing,
                                  !zone.present()        ? ""
                                  : found == known.end() ? "(no such zone)"
                                                         : found->name()});
        }
        if (watch.failed()) fail(util::NumberFileAccess, "The identities of the mail client cannot be read.");
        print(table);
        return Done;
    }

    // ---- comparing

    Compared read(const Side& side, Words& words) {
        Compared compared;
        compared.text = side.text;
        std::unique_ptr<Source> from;
        if (side.kind == Side::Kind::File) {
            from = load(side.name);
        } else if (side.kind == Side::Kind::Backup) {
            from = load(backup::partnerOf(backupFile(side.name)));
            compared.textsAndNumbers = true;
        } else {
            from = source();
        }
        if (side.kind == Side::Kind::Level) {
            const auto level = std::find_if(zones::Levels.begin(), zones::Levels.end(),
                                            [&](const zones::Level& l) { return side.name == l.name; });
            compared.level = true;
            compared.zones.push_back(readLevel(from->session, static_cast<int>(level - zones::Levels.begin())));
        } else {
            compared.zones = zonesIn(*from, placeOf(side));
            if (side.zone) {
                compared.single = true;
                compared.zones = {zoneOf(std::move(compared.zones), *side.zone, placeOf(side))};
            }
        }
        words.add(from->platform, from->session, from->exported != nullptr);
        return compared;
    }

    std::string placeOf(const Side& side) const {
        if (side.kind == Side::Kind::Backup) return "the backup \"" + side.name + "\"";
        return side.kind == Side::Kind::File ? "\"" + side.name + "\"" : where();
    }

    int compare() {
        const auto isFile = [&](const std::string& path) { return basSystem::FileExists(machine_.platform, path); };
        const Side sideA = parseSide(request_.operands[0], isFile);
        const Side sideB = parseSide(request_.operands.size() > 1 ? request_.operands[1] : "now", isFile);
        Words words;
        Compared a = read(sideA, words), b = read(sideB, words);
        addMachinesWords(words);
        if (a.level && !b.level) takeZoneOf(sideA, sideB, b);
        if (b.level && !a.level) takeZoneOf(sideB, sideA, a);
        const std::vector<Difference> found = differences(a, b, words);
        print(request_.csv ? asTable(found).asCsv() : inWords(found, a.text + ", " + b.text));
        return found.empty() ? NothingDiffers : SomethingDiffers;
    }

    // A zone behind a level says which one on the other side is meant.
    void takeZoneOf(const Side& level, const Side& other, Compared& compared) {
        if (!level.zone) return;
        if (other.zone && *other.zone != *level.zone)
            fail(util::NumberInternal,
                 "\"" + level.text + "\" and \"" + other.text + "\" mean two zones: name one of them only.");
        compared.zones = {zoneOf(std::move(compared.zones), *level.zone, placeOf(other))};
    }

    // ---- backups

    // By the name that both files of a backup share, or the zone file's.
    std::string backupFile(std::string name) {
        if (!machine_.hasRegistry)
            fail(util::NumberFileNotFound, "This system has no backups; compare with file:EXPORT.reg.");
        if (util::lower(name).ends_with(".tvf")) name.resize(name.size() - 4);
        std::string path = backup::folder(machine_.platform) + name + ".tvf";
        if (name.find_first_of("\\/:") != std::string::npos || !basSystem::FileExists(machine_.platform, path))
            fail(util::NumberFileNotFound, "There is no backup \"" + name + "\". TavimorCmd backups lists them.");
        return path;
    }

    // The windows' way of working, on the machine's registry.
    forms::Context& context() {
        if (!machine_.hasRegistry) fail(util::NumberFileNotFound, "This system has no zones.");
        if (!context_) {
            platform_ = std::make_unique<Platform>(with(machine_.platform, machine_.platform.registry, desktop_));
            context_ = std::make_unique<forms::Context>(*platform_);
        }
        return *context_;
    }

    int makeBackup() {
        forms::Context& shared = context();
        const std::string name = backup::freeName(machine_.platform);
        // Its line is the first of the file, and the zones follow.
        const std::string given = oneLine(request_.operands.empty() ? std::string() : request_.operands.front());
        const std::string description(util::trimmed(given));
        const std::vector<std::string> keys = backup::listZones(shared.registry);
        backup::writeExport(shared, name, keys, [] {});
        backup::writeZones(shared, name, description.empty() ? name : description, keys);
        print(name + "\n");
        return Done;
    }

    int listBackups() {
        context();
        Table table{{"Name", "Description"}, {}};
        backup::forEachBackup(machine_.platform, backup::folder(machine_.platform), backup::ZoneFiles,
                              [&](const backup::Listed& listed) {
                                  table.rows.push_back({listed.name.substr(0, listed.name.size() - 4),
                                                        backup::descriptionOfFile(machine_.platform, listed.path)});
                              });
        print(table);
        return Done;
    }

    int restoreBackup() {
        forms::Context& shared = context();
        const std::string file = backupFile(request_.operands.front());
        if (!request_.yes) {
            if (!console_.canAsk())
                fail(util::NumberInternal, "Restoring replaces all zones, and nobody can be asked: say --yes.");
            if (!desktop_.confirmed("All zones will be replaced by those of \"" +
                                    backup::descriptionOfFile(machine_.platform, file) + "\". Restore?"))
                fail(util::NumberInternal, "Nothing has been restored.");
        }
        backup::Restoration restoration(shared);
        if (!restoration.begin(file)) return Failed;
        while (restoration.importing()) {
            restoration.followUp();
            if (restoration.importing()) console_.pause();
        }
        return desktop_.messages() == 0 ? Done : Failed;
    }

    Machine machine_;
    platform::Console& console_;
    const Request& request_;
    ConsoleDesktop desktop_;
    std::unique_ptr<Platform> platform_;
    std::unique_ptr<forms::Context> context_;
};

}  // namespace

int run(Machine machine, platform::Console& console, const std::vector<std::string>& arguments) {
    trapped.reset();
    basErrors::reporter = &keepTrapped;
    int code = Failed;
    try {
        const Request request = parse(arguments);
        code = Program(machine, console, request).run();
    } catch (const std::exception& error) {
        console.printError("TavimorCmd: " + oneLine(error.what()) + "\n");
    }
    basErrors::reporter = nullptr;
    if (trapped && code != Failed) {
        console.printError("TavimorCmd: " + oneLine(*trapped) + "\n");
        code = Failed;
    }
    return code;
}

}  // namespace command
