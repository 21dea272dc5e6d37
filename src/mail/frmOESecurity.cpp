#include "mail/frmOESecurity.h"

#include "errors/messages.h"
#include "forms/ZoneChange.h"
#include "mail/identities.h"
#include "ui/Layout.h"
#include "util/procedure.h"
#include "zones/zones.h"

namespace {

using namespace ui::layout;
constexpr ui::Twips Width = 5400, Inner = Width - 2 * Margin;
constexpr ui::Twips ListTop = 1380, ListHeight = 2550;

}  // namespace

frmOESecurity::frmOESecurity(forms::Context& context)
    : Form(context.platform.desktop, Kind::Dialog, "frmOESecurity", "OE Security Zone",
           {Width, ListTop + ListHeight + Margin}),
      // ---- the identity
      lblIdentity(*this, "lblIdentity", {Margin, Margin, Inner, LabelHeight}, ""),
      lblInfo("lblInfo"),
      // ---- Outlook Express is currently in:
      //      Internet zone
      lblZone(captioned(lblInfo, *this, {Margin, 450, Inner, LabelHeight}, "Outlook Express is currently in:"),
              "lblZone", {Margin, 690, Inner, LabelHeight}, ""),
      // ---- Select a zone to change.
      ilsZoneIcons(*this, "ilsZoneIcons", 32),
      // A click changes the zone at once: looking around with the arrow keys must not.
      lsvOEZones(captioned(lblInfo, *this, {Margin, 1065, Inner, LabelHeight}, "Select a zone to change."),
                 "lsvOEZones", {Margin, ListTop, Inner, ListHeight}, ui::ListView::View::Icon,
                 ui::ListView::Clicks::OnActivate),
      picDummy(*this, "picDummy", {0, 0, 480, 480}),
      picHolder(*this, "picHolder", {0, 0, 480, 480}),
      context_(context) {
    lblIdentity.makeOneLine();
    lblZone.makeBold().makeOneLine();
    picDummy.setVisible(false);
    picHolder.setVisible(false);
    lsvOEZones.onItemClick = [this](int item) { lsvOEZones_ItemClick(item); };
}

void frmOESecurity::Form_Load() {
    procedure("frmOESecurity.Form_Load", [&] { FillList(); });
}

void frmOESecurity::Form_Unload() {
    procedure("frmOESecurity.Form_Unload", [&] { lsvOEZones.setImages(nullptr); });
}

void frmOESecurity::FillList() {
    procedure("frmOESecurity.FillList", [&] {
        basMain::IconCache icons(context_.platform);
        forms::fillZoneList(context_, zoneList(), icons);
    });
}

void frmOESecurity::lsvOEZones_ItemClick(int item) {
    procedure("frmOESecurity.lsvOEZones_ItemClick", [&] {
        const std::string key = lsvOEZones.item(item).tag;
        const auto zone = zones::numberOf(key);
        if (!zone)
            return errors::tell(context_.platform,
                                "This zone cannot be chosen: Outlook Express keeps the number of a "
                                "zone, and \"" +
                                    key + "\" is not a plain number.");
        // Another program may have renumbered the zones since they were listed here.
        if (!forms::stillShown(context_, key, lsvOEZones.item(item).text, "Outlook Express stays in its zone.")) {
            forms::clearZoneList(zoneList());
            return FillList();
        }
        clsRegistry& registry = context_.registry;
        const auto write = [&] {
            mail::goToSettings(registry, IdentityPath);
            registry.writeNumber(mail::SecurityZone, *zone);
            registry.writeNumber(mail::SecurityZoneLocked, 1);
        };
        forms::attempt(context_, write,
                       [] { return "The registry refused a change. Outlook Express may still be in another zone."; });
        unload();
    });
}
