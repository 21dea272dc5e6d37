#include "backup/ExportFile.h"

#include "backup/BackupFile.h"
#include "backup/RegistryExport.h"
#include "util/characters.h"
#include "util/clsStrings.h"
#include "util/numbers.h"
#include "zones/zones.h"

namespace backup {

namespace {

constexpr const char* EmptyDefault = "@=\"\"";

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

// The session knows its place in upper case only; a machine without the key must get it as the browser spells it.
std::string keyLine(const std::string& path) {
    return "[" + path + "]";
}

void writeZone(forms::Context& context, const std::string& zone, BackupFile& file,
               util::FunctionRef<void()> afterValue) {
    expectZone(zones::goToZone(context.registry, zone), zone);
    file.line(keyLine(std::string(zones::ZonesKey) + "\\" + zone));
    // Listed before anything else happens: what is handled between the values may use the session too.
    if (const auto values = context.registry.DirValue()) {
        for (const ListedValue& value : *values) {
            if (const auto text = exportLine(value)) file.line(*text);
            afterValue();
        }
    }
    file.line("");
    file.endOfZone();
    afterValue();
}

}  // namespace

std::optional<std::string> exportLine(const ListedValue& value) {
    switch (value.type) {
        case ValueType::String:
            if (value.name.empty()) return value.text.empty() ? std::optional<std::string>(EmptyDefault) : std::nullopt;
            return quoted(value.name) + "=" +
                   quoted(util::equalFolded(value.name, "icon") ? clsStrings().Replace(value.text, "\\", "\\\\")
                                                                : value.text);
        case ValueType::Dword:
            return quoted(value.name) + "=dword:" + util::toDigits(value.number, 8, 16);
        case ValueType::Binary:
            break;
    }
    return std::nullopt;
}

void writeExport(forms::Context& context, const std::string& baseName, const std::vector<std::string>& zones,
                 util::FunctionRef<void()> afterValue) {
    BackupFile file(context.platform, context.registry, baseName + ".reg");
    for (const std::string_view text : {std::string_view("REGEDIT4"), std::string_view(), OwnExportMark,
                                        std::string_view(";Please do not modify this file."), std::string_view()})
        file.line(text);

    zones::goToZones(context.registry);
    file.line(keyLine(zones::ZonesKey));
    // The default value of a DWORD or binary type, or one that holds text, is none the file knows.
    if (const auto values = context.registry.DirValue())
        for (const ListedValue& value : *values)
            if (value.name.empty() && value.type == ValueType::String && value.text.empty()) file.line(EmptyDefault);
    file.line("");

    for (const std::string& zone : zones) writeZone(context, zone, file, afterValue);
    file.close();
}

}  // namespace backup
