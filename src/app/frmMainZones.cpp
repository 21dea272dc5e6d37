// The main window's commands for zones.
#include "app/frmMain.h"
#include "editing/frmAdd.h"
#include "editing/frmEdit.h"
#include "errors/messages.h"
#include "forms/ZoneChange.h"
#include "util/procedure.h"
#include "zones/deletion.h"

void frmMain::cmdZoneOption_Click(int index) {
    procedure("frmMain.cmdZoneOption_Click", [&] {
        // Also of editing and adding: what is written now the import would write over.
        if (WaitsForImport()) return;
        if (index == 0) EditSelectedZone();
        if (index == 1) AddZone();
        if (index == 2) DeleteSelectedZone();
    });
}

void frmMain::mnuEditEdit_Click() {
    procedure("frmMain.mnuEditEdit_Click", [&] { cmdZoneOption_Click(0); });
}

void frmMain::mnuEditAdd_Click() {
    procedure("frmMain.mnuEditAdd_Click", [&] { cmdZoneOption_Click(1); });
}

void frmMain::mnuEditDelete_Click() {
    procedure("frmMain.mnuEditDelete_Click", [&] { cmdZoneOption_Click(2); });
}

void frmMain::EditSelectedZone() {
    if (lvwZones.selected() == 0 ||
        !forms::stillShown(context_, selection_.zone, selectedName(), "The zones have been read again."))
        return;
    frmEdit dialog(context_, selection_.zone, selectedName());
    dialog.showModal(this);
}

void frmMain::AddZone() {
    frmAdd dialog(context_);
    dialog.load();
    dialog.details.DrawIcon(context_.registry.GetIconForOS());
    dialog.showModal(this);
}

// Deleting ------------------------------------------------------------------------------------------------------

void frmMain::DeleteSelectedZone() {
    if (lvwZones.selected() == 0) return;
    // The zone that the question names is deleted, whatever the list shows once it has been answered.
    const std::string zone = selection_.zone, name = selectedName();
    auto plan = PlanDeletion(zone, name);
    if (!plan) return;
    bool sitesToo = false;
    if (zones::hasSites(plan->sites, zones::numberOf(zone).value())) {
        const ui::Answer answer = errors::ask(
            context_.platform, "There are site in the zone: \"" + name + "\"\r\nWould you like to delete them also?");
        if (answer != ui::Answer::Yes && answer != ui::Answer::No) return;  // the system could not ask
        sitesToo = answer == ui::Answer::Yes;
        // Zones and sites may be others by now.
        plan = PlanDeletion(zone, name);
        if (!plan) return;
    }
    forms::attempt(
        context_, [&] { zones::deleteZone(context_.registry, zone, *plan, sitesToo); },
        [] { return "Some changes could not be written. Not everything has been deleted."; });
    RebuildList();
}

// Nothing when the zone is not to be deleted; the user has been told why then.
std::optional<zones::DeletionPlan> frmMain::PlanDeletion(const std::string& zone, const std::string& name) {
    if (!forms::stillShown(context_, zone, name, "Nothing was deleted.")) return std::nullopt;
    zones::DeletionPlan plan = zones::planDeletion(context_.registry, zone);
    const std::string refused = "The zone \"" + name + "\" cannot be deleted because ";
    switch (plan.obstacle) {
        case zones::Obstacle::None:
            return plan;
        case zones::Obstacle::Unreadable:
            errors::tell(context_.platform, refused + "the registry key \"" + plan.key + "\" cannot be read.");
            break;
        case zones::Obstacle::NotConsecutive:
            errors::tell(context_.platform, refused + "the zones are not numbered consecutively from 0.");
            break;
        case zones::Obstacle::ListedTwice:
            errors::tell(context_.platform,
                         refused + "the registry lists two zones under the same name, \"" + plan.key + "\".");
            break;
    }
    return std::nullopt;
}
