#include "command/Request.h"

#include <getopt.h>

#include <algorithm>

#include "util/Error.h"
#include "util/characters.h"
#include "zones/zones.h"

namespace command {

namespace {

[[noreturn]] void wrong(const std::string& sentence) {
    throw util::Error(util::NumberInternal, "command", sentence);
}

struct Known {
    Command command;
    const char* name;
    std::size_t least, most;  // operands
    bool changes;             // the machine, so that it cannot work on an export
    const char* usage;
    const char* summary;
    const char* details;
};

constexpr Known KnownCommands[] = {
    {Command::Zones, "zones", 0, 0, false, "zones", "list the zones with their levels and flags",
     "Prints number, name, current, minimum and recommended level and flags of each zone.\n"},
    {Command::Show, "show", 1, 1, false, "show ZONE", "everything about one zone",
     "Prints texts, icon, levels, each flag and each security setting of the zone with the number ZONE. Settings that\n"
     "the browser does not describe stand at the end, by their numbers.\n"},
    {Command::Sites, "sites", 0, 1, false, "sites [ZONE]", "the sites and the zones that they are in",
     "Prints the sites, address ranges and protocol defaults of the site map, or those in the zone with the number\n"
     "ZONE. \"(no such zone)\" stands behind those whose zone does not exist.\n"},
    {Command::Mail, "mail", 0, 0, false, "mail", "the zone in which each identity reads its mail",
     "Prints each identity of the mail client with the number and name of its zone.\n"},
    {Command::Diff, "diff", 1, 2, false, "diff A [B]", "what differs between A and B, or between A and now",
     "A and B are each one of\n"
     "  now            the zones as they are\n"
     "  zone:3         one of them\n"
     "  level:High     the settings of a level: High, Medium, Medium-Low or Low\n"
     "  backup:NAME    the zones of a backup\n"
     "  file:PATH      the zones of a registry export\n"
     "A number behind a slash takes one zone only: now/3, backup:NAME/3, file:PATH/3, level:High/3. One zone is "
     "compared\n"
     "with the zone of the same number, or with the one zone on the other side; a level is compared with every zone.\n"
     "Prints only what differs. Ends with code 0 when nothing does, and with 1 otherwise.\n"},
    {Command::Backup, "backup", 0, 1, true, "backup [DESCRIPTION]", "back the zones up",
     "Writes a backup as the window does, and prints its name.\n"},
    {Command::Backups, "backups", 0, 0, true, "backups", "list the backups",
     "Prints name and description of each backup.\n"},
    {Command::Restore, "restore", 1, 1, true, "restore NAME", "replace the zones by those of a backup",
     "Restores the backup with this name, and waits until the registry editor has ended. Asks before anything is\n"
     "changed; with --yes, and when nobody can answer only with it, it does not.\n"},
};

constexpr const char* Options =
    "  --csv              print tables as comma-separated values\n"
    "  --from EXPORT.reg  read a registry export instead of this machine's registry\n"
    "  --yes              do not ask\n"
    "  --help             this text, or with a command what it does\n"
    "  --version          the program's version\n"
    "\n"
    "Exit codes: 0 done, or nothing differs; 1 something differs; 2 the request is wrong or something could not be\n"
    "read or written.\n";

const Known& known(Command command) {
    return *std::find_if(std::begin(KnownCommands), std::end(KnownCommands),
                         [&](const Known& k) { return k.command == command; });
}

const Known& named(const std::string& name) {
    const auto found = std::find_if(std::begin(KnownCommands), std::end(KnownCommands),
                                    [&](const Known& k) { return name == k.name; });
    if (found == std::end(KnownCommands))
        wrong("There is no command \"" + name + "\". TavimorCmd --help lists the commands.");
    return *found;
}

bool isZoneNumber(std::string_view text) {
    return zones::numberOf(text).has_value();
}

std::string zoneNumber(const std::string& text) {
    if (!isZoneNumber(text)) wrong("\"" + text + "\" is no zone's number, which is a number like 3.");
    return text;
}

// The options of getopt_long, which wants a zero behind the last.
enum : int { OptionCsv = 256, OptionFrom, OptionYes, OptionHelp, OptionVersion };
constexpr option LongOptions[] = {
    {"csv", no_argument, nullptr, OptionCsv},         {"from", required_argument, nullptr, OptionFrom},
    {"yes", no_argument, nullptr, OptionYes},         {"help", no_argument, nullptr, OptionHelp},
    {"version", no_argument, nullptr, OptionVersion}, {nullptr, 0, nullptr, 0}};

// What getopt_long has just stopped at. Of letters behind one dash it does not tell where they stand.
[[noreturn]] void refuse(const std::string& last) {
    if (optopt == OptionFrom) wrong("\"--from\" needs the name of an export behind it.");
    if (optopt >= OptionCsv) wrong("The option \"" + last.substr(0, last.find('=')) + "\" takes no value.");
    const std::string unknown = optopt == 0 ? last : std::string("-") + static_cast<char>(optopt);
    wrong("There is no option \"" + unknown + "\". TavimorCmd --help lists the options.");
}

}  // namespace

Request parse(const std::vector<std::string>& arguments) {
    std::vector<std::string> texts{"TavimorCmd"};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);

    Request request;
    bool help = false, version = false;
    opterr = 0;  // our own sentences
    optind = 0;  // from the beginning: it may have been called before
    const int count = static_cast<int>(texts.size());
    for (int found; (found = getopt_long(count, pointers.data(), "", LongOptions, nullptr)) != -1;) {
        switch (found) {
            case OptionCsv:
                request.csv = true;
                break;
            case OptionFrom:
                request.from = optarg;
                break;
            case OptionYes:
                request.yes = true;
                break;
            case OptionHelp:
                help = true;
                break;
            case OptionVersion:
                version = true;
                break;
            default:
                refuse(pointers[static_cast<std::size_t>(optind - 1)]);
        }
    }
    for (int i = optind; i < count; ++i) request.operands.emplace_back(pointers[static_cast<std::size_t>(i)]);
    if (version) {
        request.command = Command::Version;
        return request;
    }
    if (request.operands.empty()) {
        if (!help) wrong("A command is missing. TavimorCmd --help lists the commands.");
        return request;
    }
    const Known& command = named(request.operands.front());
    request.operands.erase(request.operands.begin());
    if (help) {
        request.helpFor = command.command;
        return request;
    }
    request.command = command.command;
    if (request.operands.size() < command.least || request.operands.size() > command.most)
        wrong("It is: TavimorCmd " + std::string(command.usage));
    if (request.from && command.changes)
        wrong("\"" + std::string(command.name) + "\" works on this machine only, not on an export.");
    if (request.command == Command::Show || request.command == Command::Sites)
        for (const std::string& operand : request.operands) zoneNumber(operand);
    return request;
}

std::string helpText() {
    std::string text = "Shows, compares, backs up and restores the security zones of Internet Explorer.\n\n";
    for (const Known& command : KnownCommands) {
        std::string usage = command.usage;
        usage.resize(std::max<std::size_t>(usage.size(), 22), ' ');
        text += "  TavimorCmd " + usage + command.summary + "\n";
    }
    return text + "\n" + Options;
}

std::string helpText(Command command) {
    const Known& k = known(command);
    return "TavimorCmd " + std::string(k.usage) + "\n\n" + k.details + "\n" + Options;
}

Side parseSide(const std::string& text, util::FunctionRef<bool(const std::string& path)> isFile) {
    Side side;
    side.text = text;
    const std::size_t colon = text.find(':');
    const std::string kind = text.substr(0, colon);
    std::string rest = colon == std::string::npos ? "" : text.substr(colon + 1);
    if (colon == std::string::npos) rest = text;

    const std::size_t slash = rest.rfind('/');
    const bool whole = kind == "file" && isFile(rest);
    if (!whole && slash != std::string::npos && isZoneNumber(rest.substr(slash + 1))) {
        side.zone = rest.substr(slash + 1);
        rest.resize(slash);
    }
    side.name = rest;
    if (colon == std::string::npos && rest == "now") return side;
    if (colon != std::string::npos && !rest.empty()) {
        if (kind == "zone" && !side.zone) {
            side.kind = Side::Kind::Zone;
            side.zone = zoneNumber(rest);
            return side;
        }
        if (kind == "backup") side.kind = Side::Kind::Backup;
        if (kind == "file") side.kind = Side::Kind::File;
        if (kind == "level") {
            side.kind = Side::Kind::Level;
            const auto level = std::find_if(zones::Levels.begin(), zones::Levels.begin() + zones::OfferedLevels,
                                            [&](const zones::Level& l) { return util::equalFolded(l.name, rest); });
            if (level == zones::Levels.begin() + zones::OfferedLevels)
                wrong("There is no level \"" + rest + "\", but High, Medium, Medium-Low and Low.");
            side.name = level->name;
        }
        if (side.kind != Side::Kind::Now) return side;
    }
    wrong("\"" + text +
          "\" cannot be compared. It is: now, zone:3, level:High, backup:NAME or "
          "file:EXPORT.reg, each but zone:3 with /3 behind it for one zone.");
}

}  // namespace command
