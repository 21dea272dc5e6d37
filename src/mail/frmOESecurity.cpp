#include "mail/frmOESecurity.h"

#include "errors/messages.h"
#include "mail/identities.h"
#include "ui/Layout.h"
#include "util/Error.h"
#include "util/numbers.h"
#include "util/procedure.h"

namespace {

using namespace ui::layout;
constexpr ui::Twips Width = 5400, Inner = Width - 2 * Margin;
constexpr ui::Twips ListTop = 1050, ListHeight = 2550;

}  // namespace

frmOESecurity::frmOESecurity(forms::Context& context)
    : Form(context.platform.desktop, Kind::Dialog, "frmOESecurity", "OE Security Zone",
           {Width, ListTop + ListHeight + Margin}),
      lblInfo("lblInfo"),
      // ---- Outlook Express is currently in:
      //      Internet zone
      lblZone(*this, "lblZone", {Margin, 360, Inner, 225}, ""),
      // ---- Select a zone to change.
      ilsZoneIcons(*this, "ilsZoneIcons", 32),
      // A click changes the zone at once: looking around with the arrow keys must not.
      lsvOEZones(*this, "lsvOEZones", {Margin, ListTop, Inner, ListHeight}, ui::ListView::View::Icon,
                 ui::ListView::Clicks::OnActivate),
      picDummy(*this, "picDummy", {0, 0, 480, 480}),
      picHolder(*this, "picHolder", {0, 0, 480, 480}),
      context_(context) {
    lblInfo.add(*this, {Margin, Margin, Inner, 225}, "Outlook Express is currently in:");
    lblInfo.add(*this, {Margin, 735, Inner, 225}, "Select a zone to change.");
    lblZone.makeBold();
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
        fillZoneList(context_, {lsvOEZones, ilsZoneIcons, picDummy, picHolder}, icons);
    });
}

void frmOESecurity::lsvOEZones_ItemClick(int item) {
    procedure("frmOESecurity.lsvOEZones_ItemClick", [&] {
        const std::string& key = lsvOEZones.item(item).tag;
        const auto zone = util::wholeNumber(key);
        if (!zone)
            throw util::Error(util::NumberNotANumber, "frmOESecurity",
                              "The zone \"" + key + "\" has no number that Outlook Express could keep.");
        clsRegistry& registry = context_.registry;
        const clsRegistry::FailureWatch watch(registry);
        registry.cD("\\" + IdentityPath);
        registry.writeNumber(mail::ZoneValue, *zone);
        registry.writeNumber(mail::LockValue, 1);
        if (watch.failed())
            errors::tell(context_.platform,
                         "The registry refused a change. Outlook Express may still be in another zone.");
        unload();
    });
}
