// A program over a test system with zones, and what tests of backups ask again and again.
#pragma once

#include <gtest/gtest.h>

#include "app/Application.h"
#include "backup/Restoration.h"
#include "errors/frmError.h"
#include "support/TestSystem.h"
#include "ui/ListView.h"
#include "zones/zones.h"

struct BackupFixture : testing::Test {
    using Texts = std::vector<std::string>;

    TestSystem system;
    app::Application program{system.platform()};
    backup::Restoration restoration{program};
    ScriptedDesktop& desktop = system.desktop;

    static std::string zoneKey(const std::string& zone) { return std::string(zones::ZonesKey) + "\\" + zone; }

    // Shows a dialog to a user who does what `script` says and closes it.
    template <class F>
    void use(std::function<void(F&)> script) {
        const auto show = [&](F& form) {
            desktop.expectForm<F>(std::move(script));
            form.showModal();
        };
        if constexpr (std::is_constructible_v<F, forms::Context&>) {
            F form(program);
            show(form);
        } else {
            F form(program, restoration);
            show(form);
        }
    }
    // The user reads an error dialog about a procedure, and goes on.
    void expectError(const std::string& procedure, const std::string& text) {
        desktop.expectForm<frmError>([procedure, text](frmError& error) {
            EXPECT_EQ(error.lblModule.caption() + "." + error.lblProcedure.caption(), procedure);
            EXPECT_NE(error.lblErrDescription.caption().find(text), std::string::npos)
                << error.lblErrDescription.caption();
            error.cmdContinue.click();
        });
    }
    static Texts texts(const ui::ListView& list) {
        Texts all;
        for (int item = 1; item <= list.count(); ++item) all.push_back(list.item(item).text);
        return all;
    }
    std::string file(const std::string& name) { return system.readFile("Backups\\" + name).value_or("(no file)"); }
    std::string inBackups(const std::string& name) { return system.path("Backups\\" + name); }
    void addFile(const std::string& name, const std::string& bytes) {
        system.platform().files.createFolder(system.path("Backups"));
        system.writeFile("Backups\\" + name, bytes);
    }
};
