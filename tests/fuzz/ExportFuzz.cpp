// Any bytes at all as a registry export, read as a restore reads it and as a registry of its own.
#include "backup/ZonesExport.h"
#include "command/ExportedRegistry.h"
#include "expect.h"
#include "native/Console.h"

namespace {

using backup::RegistryExport;

bool within(std::string_view all, std::string_view part) {
    return all.find(part) != std::string_view::npos;
}

void restore(std::string_view bytes) {
    RegistryExport source{std::string(bytes)};
    std::size_t lines = 0, values = 0;
    while (const auto item = source.next()) {
        expect(!item->lines.empty(), "an item is read from at least one line");
        for (const std::string_view line : item->lines)
            expect(line.find_first_of(std::string_view("\r\n\0", 3)) == line.npos, "a line has no end in it");
        lines += item->lines.size();
        values += item->kind == RegistryExport::Kind::Value;
    }
    expect(lines <= bytes.size(), "no line is read twice");

    const backup::ZonesExport read = backup::readZonesExport(bytes);
    std::size_t held = read.values.size(), text = 0;
    for (const backup::ExportedZone& zone : read.zones) {
        expect(!zone.name.empty() && !within(zone.name, "\\"), "a zone is a key directly below the zones key");
        held += zone.values.size();
        for (const backup::ExportedValue& value : zone.values) text += value.name.size() + value.text.size();
    }
    expect(held <= values && text <= bytes.size(), "nothing is made up");
    // A file that brings a key from elsewhere is never let through, however the key is hidden.
    if (!bytes.starts_with("\xFF\xFE") && within(bytes, "\n[HKEY_USERS]\r\n"))
        expect(read.forbidden.has_value(), "a line that names another key is refused");
}

void makeRegistry(std::string_view bytes) {
    native::Console console;
    command::ExportedRegistry registry;
    const std::string wrong = registry.load(bytes, console);
    expect(registry.openHandles() == 0, "no key stays open");
    const auto contents = registry.contents();
    std::size_t held = 0;
    for (const auto& [name, stored] : contents) held += stored.size();
    // A letter of UTF-16 has up to three bytes in UTF-8, and a number of eight digits four.
    expect(held <= 3 * bytes.size() + 64, "no more is held than the file has");
    // Imported twice in a row it is no other, unless it deletes what it brings.
    expect(registry.load(bytes, console) == wrong, "a file is read the same again");
    expect(!wrong.empty() || within(bytes, "-") || registry.contents() == contents, "a second import changes nothing");
    platform::HKey key = 0;
    expect(registry.RegCreateKeyExA(platform::HKeyCurrentUser, "New", platform::KeyAllAccess, key) ==
               platform::AccessDenied,
           "nothing can be written");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    restore(bytes);
    makeRegistry(bytes);
    return 0;
}
