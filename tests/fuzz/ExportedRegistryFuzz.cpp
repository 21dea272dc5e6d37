// Any bytes at all as a registry export that becomes a registry. What cannot be right ends the program, so that the
// input is kept.
#include <cstdio>
#include <cstdlib>

#include "command/ExportedRegistry.h"
#include "native/Console.h"

namespace {

void expect(bool held, const char* promise) {
    if (held) return;
    std::fprintf(stderr, "broken: %s\n", promise);
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    native::Console console;
    command::ExportedRegistry registry, again;
    const std::string wrong = registry.load(bytes, console);
    expect(registry.openHandles() == 0, "no key stays open");
    const auto contents = registry.contents();

    std::size_t held = 0;
    for (const auto& [name, stored] : contents) held += stored.size();
    // A letter of UTF-16 has up to three bytes in UTF-8, and a number of eight digits four.
    expect(held <= 3 * size + 64, "no more is held than the file has");

    expect(again.load(bytes, console) == wrong && again.contents() == contents, "the same file is the same registry");
    if (wrong.empty()) {
        // Imported twice in a row it is no other, unless it deletes what it brings.
        expect(registry.load(bytes, console).empty(), "a file that can be read can be read again");
        if (bytes.find('-') == std::string::npos)
            expect(registry.contents() == contents, "a second import changes nothing");
    }

    platform::HKey key = 0;
    expect(registry.RegCreateKeyExA(platform::HKeyCurrentUser, "New", platform::KeyAllAccess, key) ==
               platform::AccessDenied,
           "nothing can be written");
    return 0;
}
