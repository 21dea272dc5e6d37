// The procedure trace, the error trap, the error dialog and the error log.
//
// Every procedure of the program runs inside `procedure("module.Name", body)`: its name stands on the program-wide
// trace while it runs. An exception that reaches the trap is shown in the error dialog and appended to the day's log;
// the procedure then returns a default result, and its name STAYS on the trace: later stack dumps show such stale
// names. Expected outcomes (a missing key, refused input) are values, never exceptions.
#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "ui/Form.h"

namespace platform {
struct Platform;
}

namespace basErrors {

// An unexpected error: a number, the part of the program it comes from, and a text a person understands.
class Error : public std::runtime_error {
public:
    Error(std::uint32_t number, std::string source, const std::string& description)
        : std::runtime_error(description), number_(number), source_(std::move(source)) {}
    std::uint32_t number() const { return number_; }  // shown as a signed decimal
    const std::string& source() const { return source_; }

private:
    std::uint32_t number_;
    std::string source_;
};

// Numbers of errors that have no better one.
enum ErrorNumber : std::uint32_t {
    NumberOutOfMemory = 7,
    NumberOutOfRange = 9,  // an item or element that is not there
    NumberNotANumber = 13,
    NumberInternal = 51,
    NumberFileNotFound = 53,
    NumberFileAccess = 75,  // a file or folder that cannot be read, written or made
};

// The program-wide error object: the last error raised, trapped or recorded.
struct ErrObject {
    std::uint32_t number = 0;
    std::string source;
    std::string description;
    void clear() { *this = {}; }
};
extern ErrObject Err;
extern std::string ErrLine;                 // line-number text of the last trapped error: code without lines gives "0"
extern std::vector<const char*> ProcStack;  // names of the running procedures, outermost first; literals
extern std::int32_t ProcCount;              // entries of ProcStack

void TracePush(const char* name);  // `name` lives as long as the program
void TracePop();

// What the error dialog works with. Set while the program runs; without it a trapped error is only recorded in Err.
struct Reporting {
    platform::Platform* platform = nullptr;
    ui::Form* mainWindow = nullptr;            // owns the dialog
    std::function<ui::Picture()> exclamation;  // the dialog's picture; empty when it cannot be had
};
extern Reporting reporting;

// True while a trapped error is being shown.
bool errorPending();

// Shows Err in the error dialog, modal, owned by the main window; nothing when its number is 0. Err is the same
// afterwards. An error that is met while the report is being made is dropped, and one that is met while the dialog is
// open (by a timer, which would stack dialogs) goes to the log alone.
void ShowError();

// Err and the place where it was trapped, as the dialog and the log show them.
struct Report {
    std::string module, procedure, line, number, description;
};
Report currentReport();

// Browser facts for the log: customized version, version, build, updates.
struct IEInfo {
    std::string customizedVersion, version, build, updates;
};
// Reads through a registry session of its own: the callers of the procedure whose error is being reported go on in the
// key where they left the program's.
IEInfo GetIEInfo();
// Appends one report with a dump of the trace to "Logs\ErrorLog-m-d-yyyy.log" beside the program. Throws Error when
// folder or file refuse; the dialog then says so.
void WriteErrorLog(const std::string& module, const std::string& procedure, const std::string& line,
                   const std::string& errorNumber, const std::string& description);

// Runs `step(context)` as the procedure `name`: the one place that traces and traps, for every procedure there is.
void runProcedure(const char* name, void (*step)(void* context), void* context);

template <class Body>
auto procedure(const char* name, Body&& body) -> std::invoke_result_t<Body&> {
    using Result = std::invoke_result_t<Body&>;
    using Function = std::remove_reference_t<Body>;
    if constexpr (std::is_void_v<Result>) {
        const auto step = [](void* context) { (*static_cast<Function*>(context))(); };
        runProcedure(name, step, const_cast<std::remove_const_t<Function>*>(&body));
    } else {
        struct Call {
            Function& body;
            Result result{};
        } call{body};
        const auto step = [](void* context) {
            auto& running = *static_cast<Call*>(context);
            running.result = running.body();
        };
        runProcedure(name, step, &call);
        return std::move(call.result);
    }
}

}  // namespace basErrors

using basErrors::procedure;
