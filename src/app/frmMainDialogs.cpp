// The main window's commands around backups and the mail client.
#include "app/frmMain.h"
#include "backup/frmBackup.h"
#include "backup/frmRestore.h"
#include "errors/messages.h"
#include "mail/frmOESecurity.h"
#include "mail/identities.h"
#include "ui/Desktop.h"
#include "ui/Hourglass.h"
#include "util/procedure.h"

// Backup and restore --------------------------------------------------------------------------------------------

void frmMain::mnuFileBackup_Click() {
    procedure("frmMain.mnuFileBackup_Click", [&] {
        if (WaitsForImport()) return;
        frmBackup dialog(context_);
        dialog.showModal(this);
    });
}

void frmMain::mnuFileRestore_Click() {
    procedure("frmMain.mnuFileRestore_Click", [&] {
        if (WaitsForImport()) return;
        frmRestore dialog(context_, restoration_);
        {
            // Over this window: while the backups are being listed the dialog has none.
            const ui::Hourglass hourglass(*this);
            dialog.load();
        }
        dialog.showModal(this);
        tmrImport.setEnabled(restoration_.importing());
    });
}

bool frmMain::WaitsForImport() {
    if (!restoration_.importing()) return false;
    errors::tell(context_.platform, "A backup is being restored. Please wait until that is done.");
    return true;
}

void frmMain::ReloadAsItIs() {
    procedure("frmMain.ReloadAsItIs", [&] {
        forms::clearZoneList(zoneList());
        basMain::IconCache icons(context_.platform);
        forms::fillZoneList(context_, zoneList(), icons);
        if (lvwZones.count() > 0) {
            SelectUsualZone(icons);
        } else {
            ClearSummary();
        }
    });
}

void frmMain::tmrImport_Timer() {
    procedure("frmMain.tmrImport_Timer", [&] {
        // An open dialog works on the selected zone, which a new list would change under it: on a later tick.
        if (desktop().forms().size() > 1) return;
        restoration_.followUp();
        tmrImport.setEnabled(restoration_.importing());
    });
}

// The mail client -----------------------------------------------------------------------------------------------

void frmMain::LoadIdentities() {
    procedure("frmMain.LoadIdentities", [&] {
        mail::fillMenu(context_, mnuEditOESecurity);
        int index = 0;
        for (ui::MenuItem& item : mnuEditOESecurity.items()) {
            item.onClick = [this, index] { mnuOEUser_Click(index); };
            ++index;
        }
    });
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
