// What differs between zones, in words.
#pragma once

#include <string>
#include <vector>

#include "command/Table.h"
#include "command/Zone.h"

namespace command {

// The zones on one side of a comparison.
struct Compared {
    std::string text;              // what the user calls it
    std::vector<Zone> zones;       // of a level the one that has its settings
    bool level = false;            // it has settings only, and is compared with any zone
    bool single = false;           // exactly one zone, which is compared with any other single one
    bool textsAndNumbers = false;  // it carries nothing else, as the program's own backups do
};

struct Difference {
    std::string zone, name;  // the zone's number and name; with two zones those of the second
    std::string what;        // "Current level"; "" for a zone that is only on one side
    std::string before, after;
};

std::vector<Difference> differences(const Compared& a, const Compared& b, const Words& words);

// As they are printed. `levels`: what two levels are headed with, which belong to no zone.
std::string inWords(const std::vector<Difference>& found, const std::string& levels);
Table asTable(const std::vector<Difference>& found);

}  // namespace command
