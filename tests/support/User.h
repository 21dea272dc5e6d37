// A program over a test system, and a user who opens its windows, reads them and looks at what the registry and the
// backups hold then.
#pragma once

#include "app/frmMain.h"
#include "editing/frmAdd.h"
#include "editing/frmEdit.h"
#include "editing/frmSecurity.h"
#include "icons/frmIconSelector.h"
#include "support/Core.h"
#include "ui/TextBox.h"

struct User : testing::Test, Core {
    using Texts = std::vector<std::string>;
    template <class F>
    using Script = std::function<void(F&)>;
    static constexpr int GeneralTab = 1, FlagsPage = 2, SecurityPage = 3;

    ScriptedDesktop& desktop = system.desktop;

    // The main window, which opens when it is first asked for.
    virtual frmMain& window() {
        if (!window_) (window_ = std::make_unique<frmMain>(program))->load();
        return *window_;
    }
    void closeWindow() { window_.reset(); }
    static Texts texts(const ui::ListView& list) {
        Texts all;
        for (int item = 1; item <= list.count(); ++item) all.push_back(list.item(item).text);
        return all;
    }
    Texts names() { return texts(window().lvwZones); }
    virtual void select(const std::string& zone) {
        ui::ListView& list = window().lvwZones;
        for (int i = 1; i <= list.count(); ++i)
            if (list.item(i).tag == zone) return list.click(i);
        if (!desktop.patient) ADD_FAILURE() << "the list has no zone " << zone;
    }
    static void typeOver(ui::TextBox& box, const std::string& text) {
        box.selectAll();
        box.type(text);
    }

    // Each opens a dialog, runs `script` in it and closes it: at first one of those that stand for themselves, then
    // those that are opened from another.
    template <class F, class... With>
    void use(const Script<F>& script, With&... with) {
        F form(program, with...);
        desktop.use<F>(script, [&] { form.showModal(); });
    }
    void add(const Script<frmAdd>& script) {
        desktop.use<frmAdd>(script, [&] { window().mnuEditAdd.click(); });
    }
    void edit(const std::string& zone, const Script<frmEdit>& script) {
        select(zone);
        desktop.use<frmEdit>(script, [&] { window().cmdZoneOption(0).click(); });
    }
    void editPage(const std::string& zone, int page, const Script<frmEdit>& script) {
        edit(zone, [&](frmEdit& form) {
            form.TabStrip1.choose(page);
            script(form);
        });
    }
    void openSettings(frmEdit& form, const Script<frmSecurity>& script) {
        desktop.use<frmSecurity>(script, [&] { form.levels.cmdSecurity.click(); });
    }
    // Chooses the icon of that place in a program file.
    void chooseIcon(frmEdit& form, const std::string& file, int place, const std::string& start = "inetcpl.cpl") {
        desktop.expectFile(file, start);
        const auto choose = [place](frmIconSelector& selector) {
            selector.tmrLoad.tick();
            selector.lvwIcons.click(place);
            selector.tmrUnload.tick();
        };
        desktop.use<frmIconSelector>(choose, [&] { form.general.details.picIcon.click(); });
    }
    // The user reads an error dialog about a procedure, whose text has that in it, or ends with that sentence, and goes
    // on.
    using Core::expectError;
    void expectError(const std::string& procedure, const std::string& text) {
        desktop.expectForm<frmError>([procedure, text](frmError& error) {
            EXPECT_EQ(error.lblModule.caption() + "." + error.lblProcedure.caption(), procedure);
            const std::string told = error.lblErrDescription.caption();
            EXPECT_TRUE(text.ends_with('.') ? told.ends_with(text) : told.find(text) != std::string::npos) << told;
            error.cmdContinue.click();
        });
    }

    // ---- what is stored

    static std::string zoneKey(const std::string& zone) { return std::string(zones::ZonesKey) + "\\" + zone; }
    std::string stored(const std::string& zone, const std::string& name) {
        return system.shown(zoneKey(zone), name).value_or("none");
    }
    // Texts, and numbers behind "#".
    void set(const std::string& zone, const TestSystem::Tree& values) {
        for (const auto& [name, held] : values)
            if (held.starts_with('#'))
                system.setDword(zoneKey(zone), name, static_cast<std::uint32_t>(std::stoul(held.substr(1))));
            else
                system.setText(zoneKey(zone), name, held);
    }
    void addZone(const std::string& zone) { system.setText(zoneKey(zone), "DisplayName", "Zone " + zone); }
    std::string inBackups(const std::string& name) { return system.path("Backups\\" + name); }
    std::string file(const std::string& name) { return system.readFile("Backups\\" + name).value_or("(no file)"); }
    void addFile(const std::string& name, const std::string& bytes) {
        system.platform().files.createFolder(system.path("Backups"));
        system.writeFile("Backups\\" + name, bytes);
    }
    void removeFile(const std::string& name) { system.platform().files.remove(inBackups(name)); }

private:
    std::unique_ptr<frmMain> window_;
};
