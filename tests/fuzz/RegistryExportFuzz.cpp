// Any bytes at all as a registry export, read as a restore reads it. What cannot be right ends the program, so that the
// input is kept.
#include <cstdio>
#include <cstdlib>

#include "backup/ZonesExport.h"

namespace {

using backup::RegistryExport;

void expect(bool held, const char* promise) {
    if (held) return;
    std::fprintf(stderr, "broken: %s\n", promise);
    std::abort();
}

bool within(std::string_view all, std::string_view part) {
    return all.find(part) != std::string_view::npos;
}

void checkItem(const RegistryExport::Item& item) {
    expect(!item.lines.empty(), "an item is read from at least one line");
    for (const std::string_view line : item.lines)
        expect(line.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos, "a line has no end in it");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    RegistryExport source(bytes);
    std::size_t lines = 0, values = 0;
    while (const auto item = source.next()) {
        checkItem(*item);
        lines += item->lines.size();
        values += item->kind == RegistryExport::Kind::Value;
    }
    expect(lines <= size, "no line is read twice");

    const backup::ZonesExport read = backup::readZonesExport(bytes);
    std::size_t held = read.values.size(), text = 0;
    for (const backup::ExportedZone& zone : read.zones) {
        expect(!zone.name.empty() && !within(zone.name, "\\"), "a zone is a key directly below the zones key");
        held += zone.values.size();
        for (const backup::ExportedValue& value : zone.values) text += value.name.size() + value.text.size();
    }
    expect(held <= values, "nothing is made up");
    expect(text <= size, "no more is held than the file has");
    // A file that brings a key from elsewhere is never let through, however the key is hidden.
    if (!bytes.starts_with("\xFF\xFE") && within(bytes, "\n[HKEY_USERS]\r\n"))
        expect(read.forbidden.has_value(), "a line that names another key is refused");
    return 0;
}
