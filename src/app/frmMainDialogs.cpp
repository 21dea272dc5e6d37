// The main window's commands around backups and the mail client.
#include "app/frmMain.h"
#include "backup/frmBackup.h"
#include "backup/frmRestore.h"
#include "mail/frmOESecurity.h"
#include "mail/identities.h"
#include "ui/Desktop.h"
#include "util/procedure.h"

// Backup and restore --------------------------------------------------------------------------------------------

void frmMain::mnuFileBackup_Click() {
    procedure("frmMain.mnuFileBackup_Click", [&] {
        frmBackup dialog(context_);
        dialog.showModal(this);
    });
}

void frmMain::mnuFileRestore_Click() {
    procedure("frmMain.mnuFileRestore_Click", [&] {
        frmRestore dialog(context_);
        dialog.showModal(this);
    });
}

void frmMain::ReloadWhileImporting(platform::Launcher::Process import) {
    EndImport();
    import_ = import;
    tmrImport.setEnabled(import_ != 0);
    ReloadAsItIs();
}

void frmMain::ReloadAsItIs() {
    procedure("frmMain.ReloadAsItIs", [&] {
        clearZoneList(zoneList());
        basMain::IconCache icons(context_.platform);
        fillZoneList(context_, zoneList(), icons);
        lvwZones.count() > 0 ? SelectUsualZone(icons) : ClearSummary();
    });
}

void frmMain::tmrImport_Timer() {
    procedure("frmMain.tmrImport_Timer", [&] {
        if (context_.platform.launcher.running(import_)) return;
        // An open dialog works on the selected zone, which a new list would change under it. It is read on a later
        // tick.
        if (desktop().forms().size() > 1) return;
        EndImport();
        ReloadAsItIs();
    });
}

void frmMain::EndImport() {
    tmrImport.setEnabled(false);
    if (import_ != 0) context_.platform.launcher.close(import_);
    import_ = 0;
}

// The mail client -----------------------------------------------------------------------------------------------

void frmMain::LoadIdentities() {
    procedure("frmMain.LoadIdentities",
              [&] { mail::fillMenu(context_, mnuEditOESecurity, [this](int index) { mnuOEUser_Click(index); }); });
}

void frmMain::mnuOEUser_Click(int index) {
    procedure("frmMain.mnuOEUser_Click", [&] {
        frmOESecurity dialog(context_);
        dialog.load();
        const std::string identity = mnuEditOESecurity.items()[static_cast<std::size_t>(index)].tag();
        dialog.lblIdentity.setCaption(mail::nameOf(context_, identity));
        dialog.lblZone.setCaption(mail::zoneNameOf(context_, identity) + " zone");
        dialog.IdentityPath = mail::settingsPath(identity);
        dialog.showModal(this);
    });
}
