// What the user asks for on the command line.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "util/FunctionRef.h"

namespace command {

enum class Command { Zones, Show, Sites, Mail, Diff, Backup, Backups, Restore, Help, Version };

struct Request {
    Command command = Command::Help;
    std::vector<std::string> operands;  // what follows the command
    std::optional<std::string> from;    // an export to be read instead of the machine's registry
    bool csv = false;
    bool yes = false;
    std::optional<Command> helpFor;  // of Help
};

// `arguments` without the program's name. Throws util::Error with a sentence for the user: what is wrong and what would
// be right.
Request parse(const std::vector<std::string>& arguments);

// What --help prints, of the whole program or of one command.
std::string helpText();
std::string helpText(Command command);

// One side of a comparison.
struct Side {
    enum class Kind { Now, Zone, Level, Backup, File };
    std::string text;  // as the user wrote it
    Kind kind = Kind::Now;
    std::string name;                 // of the zone, level or backup, or the file's path
    std::optional<std::string> zone;  // only this one
};

// `isFile` tells whether a path names a file: "file:exports/3" may be one. Throws util::Error, too.
Side parseSide(const std::string& text, util::FunctionRef<bool(const std::string& path)> isFile);

}  // namespace command
