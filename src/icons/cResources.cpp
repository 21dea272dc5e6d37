#include "icons/cResources.h"

#include <array>

#include "icons/basResouce.h"
#include "util/Error.h"
#include "util/numbers.h"

namespace {

// By type number; null where a number has no name.
constexpr std::array<const char*, 24> TypeNames = {
    nullptr,           "Cursor",        "Bitmap",       "Icon",           "Menu",          "Dialog",       "String",
    "Font Directory",  "Font",          "Accelerators", "RC Data",        "Message Table", "Group Cursor", nullptr,
    "Group Icon",      nullptr,         "Version",      "Dialog Include", nullptr,         "VXD",          "VXD",
    "Animated Cursor", "Animated Icon", "HTML",
};

// Codes 1812 to 1815: a file without a resource section, type, name or language asked for. It has none, then.
bool saysNone(platform::Result code) {
    return code >= platform::NoSuchResource && code <= platform::NoSuchResource + 3;
}

}  // namespace

cResources::cResources(platform::Platform& platform, const std::string& fileName)
    : platform_(platform), module_(platform.modules, fileName) {
    if (!module_.opened())
        raiseError(basResouce::NumberNoLibrary, "Can't load library: ", platform_.modules.lastError());
}

void cResources::raiseError(std::uint32_t number, const char* what, platform::Result code) const {
    throw util::Error(number, platform_.system.programName() + ".cResource",
                      what + basResouce::WinError(platform_, code));
}

void cResources::check(platform::Result code) const {
    if (code != platform::Success && !saysNone(code))
        raiseError(basResouce::NumberEnumeration, "Can't enumerate resources: ", code);
}

std::vector<platform::ResourceId> cResources::Types() const {
    std::vector<platform::ResourceId> types;
    check(platform_.modules.EnumResourceTypesA(module_.handle(), types));
    return types;
}

std::vector<platform::ResourceId> cResources::Names(const platform::ResourceId& type) const {
    std::vector<platform::ResourceId> names;
    check(platform_.modules.EnumResourceNamesA(module_.handle(), type, names));
    return names;
}

std::string cResources::TypeName(const platform::ResourceId& type) {
    const auto* number = std::get_if<std::uint16_t>(&type);
    if (!number) return std::get<std::string>(type);
    if (*number < TypeNames.size() && TypeNames[*number]) return TypeNames[*number];
    return "Other (" + util::toDecimal(*number) + ")";
}
