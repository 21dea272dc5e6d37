// Any bytes at all as a zone backup, read as the restore window reads it.
#include <algorithm>

#include "backup/ZoneFile.h"
#include "expect.h"
#include "util/Error.h"
#include "util/clsStrings.h"
#include "util/procedure.h"

// Here nobody traps or shows what is thrown.
void util::runProcedure(const char*, void (*step)(void* context), void* context) {
    step(context);
}

namespace {

void checkZoneLine(clsStrings& strings, const std::string& line, backup::ZoneFields& fields) {
    const backup::ZoneFields before = fields;
    std::int32_t count = 0;
    try {
        count = strings.Initialise(line, ";");
        std::string rejoined = strings.ElementAsString(1);
        for (std::int32_t i = 2; i <= count; ++i) rejoined.append(1, ';').append(strings.ElementAsString(i));
        expect(rejoined == line, "the elements are the line");
        backup::readZoneLine(strings, line, fields);
    } catch (const util::Error& error) {
        expect(count == 0 && error.number() == 0x80040064, "a line is refused for its quotes alone");
        expect(line.find('"') != std::string::npos, "a line without quotes is taken");
    }
    if (count == backup::FieldCount) {
        expect(backup::joined(fields) == line, "the joined fields of a full line are the line");
    } else if (count == 3) {
        expect(backup::joined(fields).starts_with(line + ";"), "a line of three fields gives the first three");
        expect(std::equal(fields.begin() + 3, fields.end(), before.begin() + 3), "and leaves the others");
    } else {
        expect(fields == before, "any other line leaves the zone before it");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string> lines = backup::splitLines(bytes);
    std::string all, withoutEnds(bytes);
    for (const std::string& line : lines) all += line;
    std::erase_if(withoutEnds, [](char c) { return c == '\r' || c == '\n'; });
    expect(all == withoutEnds && lines.size() <= size, "the lines hold everything but the line ends");
    if (lines.empty()) return 0;
    const std::string description = backup::descriptionOf(lines[0]);
    expect(description == (lines[0].size() > 5 ? lines[0].substr(5) : ""), "it follows the first five characters");

    clsStrings strings;
    backup::ZoneFields fields;
    for (std::size_t line = 1; line < lines.size(); ++line) checkZoneLine(strings, lines[line], fields);
    return 0;
}
