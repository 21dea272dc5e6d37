#include "editing/frmAdd.h"

#include "errors/messages.h"
#include "forms/ZoneChange.h"
#include "ui/Layout.h"
#include "util/procedure.h"
#include "zones/Templates.h"
#include "zones/zones.h"

namespace {

using namespace ui::layout;
constexpr ui::Twips Width = 6000;
constexpr ui::Twips ButtonTop = ZoneDetails::Height;

constexpr ZoneDetails::Traces AddTraces{"frmAdd.txtZoneName_GotFocus", "frmAdd.txtZoneDescription_GotFocus",
                                        "frmAdd.picIcon_Click"};

}  // namespace

frmAdd::frmAdd(forms::Context& context)
    : Form(context.platform.desktop, Kind::Dialog, "frmAdd", "Add Zone", {Width, ButtonTop + ButtonHeight + Margin}),
      details(context, *this, Width, "<-- Click to select icon.", AddTraces),
      cmdGeneral(*this, "cmdGeneral", {Width - Margin - ButtonWidth, ButtonTop, ButtonWidth, ButtonHeight}, "Apply"),
      context_(context) {
    setDefaultButton(cmdGeneral);
    cmdGeneral.onClick = [this] { cmdGeneral_Click(); };
}

void frmAdd::cmdGeneral_Click() {
    procedure("frmAdd.cmdGeneral_Click", [&] {
        if (!details.Complete()) return;
        const auto zone = forms::numberOfNewZone(context_);
        if (!zone) return;
        const bool created = forms::change(
            context_, *zone, [&] { CreateZone(*zone); }, "The registry refused the new zone. It was not added.");
        if (created && TemplateMissing())
            errors::tell(context_.platform,
                         "The browser has no settings for the level \"High\" on this computer. The new zone has no "
                         "security settings of its own yet.");
        context_.mainWindow->RebuildList();
        if (forms::exists(context_, *zone)) unload();
    });
}

bool frmAdd::TemplateMissing() {
    constexpr int High = 0;
    const clsRegistry::FailureWatch watch(context_.registry);
    return !zones::hasTemplate(context_.registry, High) && !watch.failed();
}

void frmAdd::CreateZone(const std::string& zone) {
    clsRegistry& registry = context_.registry;
    zones::goToZones(registry);
    registry.MakeKey(zone);
    if (zones::goToZone(registry, zone) != Found::Present) return;
    details.Write();
    zones::SetDefaults(registry, zone);
}
