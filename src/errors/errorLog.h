// The day's error log.
#pragma once

#include <string>

namespace basErrors {

// Browser facts for the log: customized version, version, build, updates.
struct IEInfo {
    std::string customizedVersion, version, build, updates;
};
// Reads through a registry session of its own: the callers of the procedure whose error is being reported go on in the
// key where they left the program's.
IEInfo GetIEInfo();

// Appends one report with a dump of the trace to "Logs\ErrorLog-m-d-yyyy.log" beside the program. Throws util::Error
// when the folder cannot be made or the file not written; the dialog then says so.
void WriteErrorLog(const std::string& module, const std::string& procedure, const std::string& line,
                   const std::string& errorNumber, const std::string& description);

}  // namespace basErrors
