#include "backup/frmBackup.h"

#include "backup/BackupFile.h"
#include "backup/ExportFile.h"
#include "backup/ZoneFileWriter.h"
#include "forms/EtchedLine.h"
#include "ui/Busy.h"
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

// While it writes it lets the windows live, and takes no input: a zone that is deleted meanwhile would be half in the
// backup. What fails leaves the window open, with the description in it.
void frmBackup::cmdBackup_Click() {
    procedure("frmBackup.cmdBackup_Click", [&] {
        bool written = false;
        {
            const ui::Busy busy(*this);
            const std::string name = backup::freeName(context_.platform);
            std::string description(util::trimmed(txtDescription.text()));
            if (description.empty()) description = name;
            // One list for both files: they are to tell of the same zones.
            const std::vector<std::string> zones = backup::listZones(context_.registry);
            written = SaveRegFile(name, zones) && SaveZoneFile(name, description, zones);
        }
        if (written) unload();
    });
}

bool frmBackup::SaveRegFile(const std::string& fileName, const std::vector<std::string>& zones) {
    return procedure("frmBackup.SaveRegFile", [&] {
        ui::PendingEvents pending(context_.platform);
        backup::writeExport(context_, fileName, zones, [&] { pending.handleWhenDue(); });
        return true;
    });
}

bool frmBackup::SaveZoneFile(const std::string& fileName, const std::string& description,
                             const std::vector<std::string>& zones) {
    return procedure("frmBackup.SaveZoneFile", [&] {
        backup::writeZones(context_, fileName, description, zones);
        return true;
    });
}
