#include "util/trace.h"

#include <new>
#include <stdexcept>

#include "platform/SystemError.h"
#include "util/Error.h"
#include "util/application.h"
#include "util/procedure.h"
#include "util/systemText.h"

namespace basErrors {

ErrObject Err;
std::string ErrLine;
std::vector<const char*> ProcStack;
std::int32_t ProcCount = 0;
Reporter reporter = nullptr;

void TracePush(const char* name) {
    ProcStack.push_back(name);
    ++ProcCount;
}

void TracePop() {
    if (ProcStack.empty()) return;
    ProcStack.pop_back();
    --ProcCount;
}

void ShowError() {
    if (Err.number != 0 && reporter) reporter();
}

}  // namespace basErrors

namespace util {

namespace {

// What the library's own exceptions say is for programmers; these texts are for people.
void recordException() {
    using basErrors::Err;
    try {
        throw;
    } catch (const Error& error) {
        Err = {error.number(), error.source(), error.what()};
    } catch (const platform::SystemError& error) {
        Err = {error.code(), AppTitle, systemText(error.what(), error.code(), AppTitle)};
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

}  // namespace

void runProcedure(const char* name, void (*step)(void* context), void* context) {
    basErrors::TracePush(name);
    try {
        step(context);
    } catch (...) {
        // Rethrows what is not an error. The name stays on the trace.
        recordException();
        basErrors::ErrLine = "0";
        basErrors::ShowError();
        return;
    }
    basErrors::TracePop();
}

}  // namespace util
