// The day's error log.
#include <initializer_list>

#include "errors/ErrorReporter.h"
#include "errors/errorLog.h"
#include "platform/Platform.h"
#include "registry/clsRegistry.h"
#include "util/Error.h"
#include "util/application.h"
#include "util/basSystem.h"
#include "util/numbers.h"
#include "util/systemText.h"
#include "util/trace.h"

namespace basErrors {
namespace {

constexpr const char* LineEnd = "\r\n";

std::string line(const std::string& text = {}) {
    return text + LineEnd;
}

std::string labelled(const char* label, const std::string& value) {
    return line(std::string(label) + "     " + value);
}

std::string stars() {
    return line(std::string(60, '*'));
}

std::string heading(const std::string& text) {
    return stars() + line(text) + stars();
}

std::string dateOf(const platform::LocalTime& time, int width) {
    return util::toDigits(time.month, width) + '-' + util::toDigits(time.day, width) + '-' +
           util::toDigits(time.year, 4);
}

std::string timeOf(const platform::LocalTime& time) {
    return util::toDigits(time.hour, 2) + ':' + util::toDigits(time.minute, 2) + ':' + util::toDigits(time.second, 2);
}

std::string joined(std::initializer_list<std::string> parts) {
    std::string text;
    for (const std::string& part : parts) text += part;
    return text;
}

std::string fileHeader(const platform::LocalTime& now) {
    const IEInfo browser = GetIEInfo();
    const std::string created = dateOf(now, 2);
    return joined({
        heading("Error log for: " + errors::reporting.platform->system.programName() + " - Created: " + created),
        line(),
        heading("General Info"),
        labelled("Application:", AppTitle),
        labelled("Version:", AppVersion),
        line(),
        labelled("Operating System:", "Not implemented"),
        line(),
        line("Internet Explorer Info:"),
        line(std::string(30, '-')),
        labelled("Version:", browser.version),
        labelled("Build:", browser.build),
        labelled("Customized Version:", browser.customizedVersion),
        labelled("Updates:", browser.updates),
        heading("End General Info"),
        line(),
    });
}

std::string stackDump() {
    std::string dump;
    for (std::size_t i = ProcStack.size(); i-- > 0;) dump += line(ProcStack[i]);
    return dump;
}

[[noreturn]] void refuse(const std::string& what, const std::string& path, platform::Result code) {
    throw util::Error(util::NumberFileAccess, "basErrors.WriteErrorLog",
                      what + " \"" + path + "\": " + util::systemText(*errors::reporting.platform, code, path));
}

}  // namespace

IEInfo GetIEInfo() {
    clsRegistry registry(*errors::reporting.platform);
    const auto text = [&](const char* name, const char* missing) {
        const auto value = registry.ValueOf(name);
        return value ? value->text : std::string(missing);
    };
    IEInfo info;
    registry.goTo("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Internet Explorer");
    info.customizedVersion = text("CustomizedVersion", "Not a custom version");
    info.version = text("Version", "No setting");
    info.build = text("Build", "No setting");
    registry.goTo("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Internet Settings");
    info.updates = text("MinorVersion", "No setting");
    return info;
}

void WriteErrorLog(const std::string& module, const std::string& procedure, const std::string& lineNumber,
                   const std::string& errorNumber, const std::string& description) {
    platform::Platform& platform = *errors::reporting.platform;
    const platform::LocalTime now = platform.system.GetLocalTime();
    const std::string folder = basSystem::QualifyPath(platform.system.programFolder()) + "Logs";
    const std::string path = folder + "\\ErrorLog-" + dateOf(now, 1) + ".log";
    if (const platform::Result code = basSystem::MakeFolder(platform, folder); code != platform::Success)
        refuse("Cannot make the folder", folder, code);
    std::string text = basSystem::IsMissing(platform, path) ? fileHeader(now) : std::string();
    text += joined({
        heading("Start Error Information"),
        labelled("Time:", timeOf(now)),
        labelled("Module:", module),
        labelled("Procedure:", procedure),
        labelled("Line Number:", lineNumber),
        labelled("Error Number:", errorNumber),
        labelled("Error Description:", description),
        heading("End Error Information"),
        line("Start Stack Dump"),
        stars(),
        stackDump(),
        heading("End Stack Dump"),
        line(),
    });
    std::uint32_t written = 0;
    const platform::Result code = platform.files.append(path, text, written);
    if (code != platform::Success) refuse("Cannot write the file", path, code);
}

}  // namespace basErrors
