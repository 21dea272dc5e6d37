// A machine with the browser's zones, its templates and settings tree, and a user who opens dialogs from the main
// window.
#pragma once

#include "app/frmMain.h"
#include "editing/frmAdd.h"
#include "editing/frmEdit.h"
#include "editing/frmSecurity.h"
#include "icons/frmIconSelector.h"
#include "support/BackupFixture.h"

struct EditingFixture : BackupFixture {
    std::unique_ptr<frmMain> window;

    EditingFixture() {
        system.seedZones();
        system.seedBrowser();
        system.seedModules();
        window = std::make_unique<frmMain>(program);
        window->load();
    }
    ~EditingFixture() override { window->unload(); }

    static std::string key(const std::string& zone) { return zoneKey(zone); }
    void removeZone(const std::string& zone) { system.deleteTree(key(zone)); }
    void select(const std::string& zone) {
        for (int i = 1; i <= window->lvwZones.count(); ++i)
            if (window->lvwZones.item(i).tag == zone) return window->lvwZones.click(i);
        ADD_FAILURE() << "the list has no zone " << zone;
    }

    // Each opens a dialog as the user does, runs `script` in it and closes it.
    using EditScript = std::function<void(frmEdit&)>;
    void edit(const std::string& zone, const EditScript& script) {
        select(zone);
        system.desktop.use<frmEdit>(script, [&] { window->cmdZoneOption(0).click(); });
    }
    void editPage(const std::string& zone, int page, const EditScript& script) {
        edit(zone, [&](frmEdit& form) {
            form.TabStrip1.choose(page);
            script(form);
        });
    }
    void add(const std::function<void(frmAdd&)>& script) {
        system.desktop.use<frmAdd>(script, [&] { window->mnuEditAdd.click(); });
    }
    void customise(const std::string& zone, const std::function<void(frmSecurity&)>& script) {
        editPage(zone, SecurityPage, [&](frmEdit& form) { openSettings(form, script); });
    }
    void openSettings(frmEdit& form, const std::function<void(frmSecurity&)>& script) {
        system.desktop.use<frmSecurity>(script, [&] { form.levels.cmdSecurity.click(); });
    }
    // Chooses the icon of that place in a program file.
    void chooseIcon(frmEdit& form, const std::string& file, int place) {
        system.desktop.expectFile(file);
        system.desktop.use<frmIconSelector>(
            [place](frmIconSelector& selector) {
                selector.tmrLoad.tick();
                selector.lvwIcons.click(place);
                selector.tmrUnload.tick();
            },
            [&] { form.general.details.picIcon.click(); });
    }
    static constexpr int GeneralTab = 1, FlagsPage = 2, SecurityPage = 3;
};
