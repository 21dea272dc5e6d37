#include "errors/ErrorReporter.h"

#include <exception>

#include "errors/errorLog.h"
#include "errors/frmError.h"
#include "errors/messages.h"
#include "platform/Platform.h"
#include "util/clsStrings.h"
#include "util/numbers.h"
#include "util/trace.h"

namespace errors {

Reporting reporting;

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

void logOnly() {
    try {
        const Report report = currentReport();
        basErrors::WriteErrorLog(report.module, report.procedure, report.line, report.number, report.description);
    } catch (const std::exception&) {
        // The open dialog has already said that the log cannot be written.
    }
}

// For when there is not enough memory even for the dialog.
void showBare(const std::string& description) {
    try {
        tell(*reporting.platform, description);
    } catch (const std::exception&) {}
}

}  // namespace

void startReporting(platform::Platform& platform) {
    reporting.platform = &platform;
    basErrors::reporter = &report;
}

void stopReporting() {
    reporting = {};
    basErrors::reporter = nullptr;
}

bool errorPending() {
    return showing;
}

void report() {
    if (loading) return;
    const basErrors::ErrObject raised = basErrors::Err;
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
    basErrors::Err = raised;
}

Report currentReport() {
    Report report;
    report.line = basErrors::ErrLine;
    report.number = util::toSignedDecimal(basErrors::Err.number);
    report.description = basErrors::Err.description;
    if (!basErrors::ProcStack.empty()) {
        clsStrings elements;
        elements.Initialise(basErrors::ProcStack.back(), ".");
        report.module = elements.ElementAsString(1);
        report.procedure = elements.ElementAsString(2);
    }
    return report;
}

}  // namespace errors
