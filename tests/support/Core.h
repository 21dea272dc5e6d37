// A test system with a tokenizer, a registry session and the error trap at work. An error dialog that a test did not
// expect fails it.
#pragma once

#include <gtest/gtest.h>

#include "errors/basErrors.h"
#include "errors/frmError.h"
#include "registry/clsRegistry.h"
#include "support/TestSystem.h"
#include "util/clsStrings.h"

// Below which tests may do what they like.
inline const std::string TestsKey = "HKEY_CURRENT_USER\\Software\\Tavimor Tests";

class Core {
    struct Reporting {
        explicit Reporting(platform::Platform& platform) {
            reset();
            basErrors::reporting.platform = &platform;
        }
        ~Reporting() { reset(); }
        static void reset() {
            basErrors::reporting = {};
            basErrors::ProcStack.clear();
            basErrors::ProcCount = 0;
            basErrors::Err.clear();
        }
    };

public:
    TestSystem system;

private:
    Reporting reporting_{system.platform()};

public:
    clsStrings strings;
    clsRegistry registry{system.platform(), strings};

    // The error dialog comes and is left with Continue.
    void expectError(const std::string& description) {
        system.desktop.expectForm<frmError>([description](frmError& dialog) {
            EXPECT_EQ(dialog.lblErrDescription.caption(), description);
            dialog.cmdContinue.click();
        });
    }
};
