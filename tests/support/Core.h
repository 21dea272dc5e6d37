// The program without its windows over a test system. An error dialog that a test did not expect fails it.
#pragma once

#include <gtest/gtest.h>

#include "app/Application.h"
#include "errors/frmError.h"
#include "support/TestSystem.h"
#include "util/Error.h"
#include "util/procedure.h"
#include "util/trace.h"

// Below which tests may do what they like.
inline const std::string TestsKey = "HKEY_CURRENT_USER\\Software\\Tavimor Tests";

class Core {
public:
    TestSystem system;
    app::Application program{system.platform()};
    clsRegistry& registry = program.registry;

    Core() {
        basErrors::ProcStack.clear();
        basErrors::ProcCount = 0;
        basErrors::Err.clear();
    }
    // The names of a key's values before each write of what `act` does.
    std::vector<std::vector<std::string>> beforeEachWrite(const std::string& key, const std::function<void()>& act) {
        std::vector<std::vector<std::string>> states;
        system.registry.watch.onCall = [&](const std::string& function) {
            if (function == "RegSetValueExA") states.push_back(system.values(key));
        };
        act();
        system.registry.watch.onCall = nullptr;
        return states;
    }
    // The error dialog comes and is left with Continue.
    void expectError(const std::string& description) {
        system.desktop.expectForm<frmError>([description](frmError& dialog) {
            EXPECT_EQ(dialog.lblErrDescription.caption(), description);
            dialog.cmdContinue.click();
        });
    }
};
