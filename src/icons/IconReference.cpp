#include "icons/IconReference.h"

#include "icons/ModuleFile.h"
#include "util/basSystem.h"
#include "util/characters.h"

namespace icons {

platform::ResourceId IconReference::identifier() const {
    return toIdentifier(resource.substr(0, resource.find('#')));
}

std::optional<IconReference> parseReference(const std::string& text, const std::string& separator) {
    const std::size_t at = util::find(text, separator);
    if (at == std::string::npos || text.find('"') != std::string::npos) return std::nullopt;
    return IconReference{text.substr(0, at), text.substr(at + separator.size())};
}

IconReference defaultReference(platform::Platform& platform) {
    return {basSystem::ProgramFile(platform), "1"};
}

IconReference referenceOrDefault(platform::Platform& platform, const std::string& stored) {
    IconReference own = defaultReference(platform);
    if (stored == own.text()) return own;
    return parseReference(stored).value_or(std::move(own));
}

}  // namespace icons
