#include "backup/ExportFile.h"

#include <algorithm>
#include <string_view>

#include "backup/BackupFile.h"

namespace backup {

namespace {

constexpr const char* EmptyDefault = "@=\"\"";

bool isIcon(const std::string& name) {
    constexpr std::string_view Icon = "icon";
    return name.size() == Icon.size() && std::equal(name.begin(), name.end(), Icon.begin(), [](char a, char b) {
               return (a >= 'A' && a <= 'Z' ? a + ('a' - 'A') : a) == b;
           });
}

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

// The session knows its place in upper case only; a machine without the key must get it as the browser spells it.
std::string keyLine(const std::string& path) {
    return "[" + path + "]";
}

void writeZone(Program& program, const std::string& zone, BackupFile& file, const std::function<void()>& afterValue) {
    zones::goToZone(program.registry, zone);
    file.line(keyLine(std::string(zones::ZonesKey) + "\\" + zone));
    // Listed before anything else happens: what is handled between the values may use the session too.
    if (const auto values = program.registry.DirValue()) {
        for (const ListedValue& value : *values) {
            if (const auto text = exportLine(program.registry, program.strings, value)) file.line(*text);
            afterValue();
        }
    }
    file.line("");
    file.endOfZone();
    afterValue();
}

}  // namespace

std::optional<std::string> exportLine(clsRegistry& registry, clsStrings& strings, const ListedValue& value) {
    switch (value.type) {
        case ValueType::String:
            if (value.name.empty()) return value.text.empty() ? std::optional<std::string>(EmptyDefault) : std::nullopt;
            return quoted(value.name) + "=" +
                   quoted(isIcon(value.name) ? strings.Replace(value.text, "\\", "\\\\") : value.text);
        case ValueType::Dword:
            return quoted(value.name) + "=dword:" + registry.ParseDWord(value.text, 1);
        case ValueType::Binary:
            break;
    }
    return std::nullopt;
}

void writeExport(Program& program, const std::string& baseName, const std::function<void()>& afterValue) {
    BackupFile file(program.platform, program.registry, baseName + ".reg");
    for (const char* text : {"REGEDIT4", "", ";This file created by Tavimor.", ";Please do not modify this file.", ""})
        file.line(text);

    zones::goToZones(program.registry);
    file.line(keyLine(zones::ZonesKey));
    // The default value of a DWORD or binary type, or one that holds text, is none the file knows.
    if (const auto values = program.registry.DirValue())
        for (const ListedValue& value : *values)
            if (value.name.empty() && value.type == ValueType::String && value.text.empty()) file.line(EmptyDefault);
    file.line("");

    if (const auto keys = program.registry.DirKey())
        for (const std::string& zone : *keys) writeZone(program, zone, file, afterValue);
    file.close();
}

}  // namespace backup
