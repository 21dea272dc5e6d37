#include "icons/basResouce.h"

#include "icons/cResources.h"
#include "util/systemText.h"

namespace basResouce {

std::vector<std::string> GetResourceTypes(platform::Platform& platform, const std::string& fileName) {
    std::vector<std::string> names;
    for (const platform::ResourceId& type : cResources(platform, fileName).Types())
        names.push_back(cResources::TypeName(type));
    return names;
}

std::vector<std::string> GetResourceNames(platform::Platform& platform, const std::string& fileName,
                                          const platform::ResourceId& type) {
    std::vector<std::string> names;
    for (const platform::ResourceId& name : cResources(platform, fileName).Names(type)) {
        const bool isNumber = std::holds_alternative<std::uint16_t>(name);
        names.push_back((isNumber ? "#" : "") + icons::toText(name));
    }
    return names;
}

std::string WinError(platform::Platform& platform, platform::Result code) {
    return util::systemText(platform, code, "The file");
}

}  // namespace basResouce
