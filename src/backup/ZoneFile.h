// The program's own zone backup (".tvf"): what the restore window shows of a backup.
//
//     Desc=Before installing new toolbar
//     inetcpl.cpl#00004480;Example zone;Sites used for the example;65536;65536;69632;67
//
// One line a zone, in the registry's order; the zone's number is not in it. Nothing is escaped, so a ";" in a name
// shifts the fields behind it. Lines end in CR LF; the reader takes LF and CR alone as well.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

class clsStrings;
namespace forms {
struct Context;
}

namespace backup {

enum Field { Icon, Name, Description, CurrentLevel, MinimumLevel, RecommendedLevel, Flags, FieldCount };
inline constexpr std::string_view DescriptionMark = "Desc=";
using ZoneFields = std::array<std::string, FieldCount>;

// The fields with ";" between them.
std::string joined(const ZoneFields& fields);

// Adds a backup of all zones to the backup's ".tvf" file, which is created when absent. Throws util::Error when
// the disk refuses.
void writeZones(forms::Context& context, const std::string& baseName, const std::string& description);

// The lines of a file; a last line without end counts, an empty rest behind the last end does not.
std::vector<std::string> splitLines(std::string_view bytes);

// The description of a backup, from its first line: what stands behind the first five characters, whatever they are.
std::string descriptionOf(std::string_view firstLine);

// Takes over a zone line's fields. A line of three fields leaves the levels and flags as they are, a line of any other
// number than three and seven everything: whoever reads line after line so repeats the zone before a malformed line.
// Throws as the tokenizer does.
void readZoneLine(clsStrings& strings, const std::string& line, ZoneFields& fields);

}  // namespace backup
