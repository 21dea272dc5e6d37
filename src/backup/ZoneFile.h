// The program's own zone backup (".tvf"): what the restore window shows of a backup.
//
//     Desc=Before installing new toolbar
//     inetcpl.cpl#00004480;Example zone;Sites used for the example;65536;65536;69632;67
//
// One line for each zone, in the registry's order; the zone's number is not in it. Nothing is escaped: a ";" or a line
// break in a name or description shifts the fields after it. Lines end in CR LF; LF and CR alone are read as well.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class clsStrings;

namespace backup {

enum Field { Icon, Name, Description, CurrentLevel, MinimumLevel, RecommendedLevel, Flags, FieldCount };
inline constexpr std::string_view DescriptionMark = "Desc=";
using ZoneFields = std::array<std::string, FieldCount>;

// The fields with ";" between them.
std::string joined(const ZoneFields& fields);

// The lines of a file. A last line without an end counts; nothing after the last end does not.
std::vector<std::string> splitLines(std::string_view bytes);
std::string firstLineOf(std::string_view bytes);

// The description of a backup, from its first line: what follows the first five characters, whatever they are.
std::string descriptionOf(std::string_view firstLine);

// Splits a zone's line into its fields; 0 for one whose quotes the tokenizer refuses, and then there are no elements.
std::int32_t splitFields(clsStrings& strings, const std::string& line);

// Takes over the fields of a zone's line. A line of three fields leaves the levels and flags as they are. A line of
// any other number than three and seven leaves everything as it is: whoever reads line after line so repeats the zone
// before a malformed line.
void readZoneLine(clsStrings& strings, const std::string& line, ZoneFields& fields);

// How many zones the lines of a zone backup describe. Lines into which the line breaks of a text have split a zone
// count once; of several backups in one file the largest counts.
std::size_t countZones(const std::vector<std::string>& lines);

}  // namespace backup
