#include "backup/frmBackup.h"

#include "backup/BackupFile.h"
#include "backup/ExportFile.h"
#include "backup/ZoneFile.h"
#include "forms/EtchedLine.h"
#include "ui/Hourglass.h"
#include "ui/Layout.h"
#include "ui/PendingEvents.h"
#include "util/characters.h"
#include "util/procedure.h"

namespace {

using namespace ui::layout;
constexpr ui::Twips Width = 4680, Inner = Width - 2 * Margin, ButtonsTop = 1065;

}  // namespace

frmBackup::frmBackup(forms::Context& context)
    : Form(context.platform.desktop, Kind::Dialog, "frmBackup", "Backup Security Zones",
           {Width, ButtonsTop + ButtonHeight + Margin}),
      lblInfo(*this, "lblInfo", {Margin, Margin, Inner, 225}, "Please enter a short description for this file."),
      txtDescription(*this, "txtDescription", {Margin, 405, Inner, 285}),
      // ---- an etched line, then            [Back it up!] [Cancel]
      cmdBackup(*this, "cmdBackup", {Width - 2 * (Margin + ButtonWidth), ButtonsTop, ButtonWidth, ButtonHeight},
                "Back it up!"),
      cmdCancel(*this, "cmdCancel", {Width - Margin - ButtonWidth, ButtonsTop, ButtonWidth, ButtonHeight}, "Cancel"),
      context_(context) {
    cmdBackup.onClick = [this] { cmdBackup_Click(); };
    cmdCancel.onClick = [this] { cmdCancel_Click(); };
    setDefaultButton(cmdBackup);
    setCancelButton(cmdCancel);
}

void frmBackup::Form_Load() {
    procedure("frmBackup.Form_Load",
              [&] { basMain::EtchedLine(*this, 0, cmdBackup.top() - cmdBackup.height() / 2, client().width); });
}

void frmBackup::cmdCancel_Click() {
    procedure("frmBackup.cmdCancel_Click", [&] { unload(); });
}

// While the export is being written the user may do anything. Closing this window or the main window does not stop
// the backup, half of which would be of no use; a second press would write both files twice.
void frmBackup::cmdBackup_Click() {
    procedure("frmBackup.cmdBackup_Click", [&] {
        const ui::Hourglass hourglass(*this);
        cmdBackup.setEnabled(false);
        const std::string name = backup::baseName(context_.platform.system.GetLocalTime());
        std::string description(util::trimmed(txtDescription.text()));
        if (description.empty()) description = name;

        SaveRegFile(name);
        SaveZoneFile(name, description);
        unload();
    });
}

void frmBackup::SaveRegFile(const std::string& fileName) {
    procedure("frmBackup.SaveRegFile", [&] {
        ui::PendingEvents pending(context_.platform);
        backup::writeExport(context_, fileName, [&] { pending.handleWhenDue(); });
    });
}

void frmBackup::SaveZoneFile(const std::string& fileName, const std::string& description) {
    procedure("frmBackup.SaveZoneFile", [&] { backup::writeZones(context_, fileName, description); });
}
