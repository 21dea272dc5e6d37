#include "errors/basErrors.h"

#include <new>

#include "errors/frmError.h"
#include "platform/Platform.h"
#include "ui/Desktop.h"
#include "util/application.h"
#include "util/clsStrings.h"
#include "util/numbers.h"

namespace basErrors {

ErrObject Err;
std::string ErrLine;
std::vector<const char*> ProcStack;
std::int32_t ProcCount = 0;
Reporting reporting;

void TracePush(const char* name) {
    ProcStack.push_back(name);
    ++ProcCount;
}

void TracePop() {
    if (ProcStack.empty()) return;
    ProcStack.pop_back();
    --ProcCount;
}

namespace {

// Set while `flag` lives.
class Flag {
public:
    explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
    ~Flag() { flag_ = false; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

private:
    bool& flag_;
};

bool showing = false;
bool loading = false;

// What the library's own exceptions say is for programmers; these texts are for people.
void fillFromException() {
    try {
        throw;
    } catch (const Error& error) {
        Err = {error.number(), error.source(), error.what()};
    } catch (const std::bad_alloc&) {
        Err = {NumberOutOfMemory, AppTitle, "Out of memory."};
    } catch (const std::out_of_range&) {
        Err = {NumberOutOfRange, AppTitle, "Something was asked for that does not exist."};
    } catch (const std::length_error&) {
        Err = {NumberOutOfMemory, AppTitle, "A text or list is too long."};
    } catch (const std::exception& error) {
        Err = {NumberInternal, AppTitle, std::string("Internal error: ") + error.what()};
    }
}

void logOnly() {
    try {
        const Report report = currentReport();
        WriteErrorLog(report.module, report.procedure, report.line, report.number, report.description);
    } catch (const std::exception&) {
        // The open dialog has told of the log that cannot be written.
    }
}

// When there is not even the memory for the dialog.
void showBare(const std::string& description) {
    try {
        reporting.platform->desktop.messageBox(description, AppTitle, ui::MessageStyle::Exclamation);
    } catch (const std::exception&) {}
}

}  // namespace

bool errorPending() {
    return showing;
}

void runProcedure(const char* name, void (*step)(void* context), void* context) {
    TracePush(name);
    try {
        step(context);
    } catch (...) {
        // Fills Err and shows it, or passes on what is no error. The name stays on the trace.
        fillFromException();
        ErrLine = "0";
        ShowError();
        return;
    }
    TracePop();
}

void ShowError() {
    if (Err.number == 0 || !reporting.platform || loading) return;
    const ErrObject raised = Err;
    if (showing) {
        const Flag busy(loading);
        logOnly();
    } else {
        const Flag pending(showing);
        try {
            frmError dialog(reporting.platform->desktop);
            {
                const Flag busy(loading);
                dialog.load();
            }
            dialog.showModal(reporting.mainWindow);
        } catch (const std::exception&) {
            showBare(raised.description);
        }
    }
    Err = raised;
}

Report currentReport() {
    Report report;
    report.line = ErrLine;
    report.number = util::toSignedDecimal(Err.number);
    report.description = Err.description;
    if (!ProcStack.empty()) {
        // Not the program's tokenizer: somebody may be in the middle of a line with that one.
        clsStrings elements;
        elements.Initialise(ProcStack.back(), ".");
        report.module = elements.ElementAsString(1);
        report.procedure = elements.ElementAsString(2);
    }
    return report;
}

}  // namespace basErrors
