#include "icons/ModuleFile.h"
#include "util/numbers.h"

#include <charconv>

namespace icons {

Resource ModuleFile::read(const platform::ResourceId& name, const platform::ResourceId& type) const {
    using Reached = Resource::Reached;
    const platform::ResourceInfo info = modules_.FindResourceA(module_, name, type);
    if (!info) return {Reached::Nothing, {}};
    const platform::ResourceData data = modules_.LoadResource(module_, info);
    if (!data) return {Reached::Found, {}};
    const platform::ByteSpan bytes = modules_.LockResource(module_, info, data);
    if (!bytes.data()) return {Reached::Loaded, {}};
    return {Reached::Locked, bytes};
}

platform::ResourceId toIdentifier(const std::string& text) {
    std::uint16_t number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error == std::errc() && stop == end) return number;
    return text;
}

std::string toText(const platform::ResourceId& identifier) {
    const auto* number = std::get_if<std::uint16_t>(&identifier);
    return number ? util::toDecimal(*number) : std::get<std::string>(identifier);
}

}  // namespace icons
