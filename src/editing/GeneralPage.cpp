#include "editing/GeneralPage.h"

namespace {

constexpr ZoneDetails::Traces GeneralTraces{"frmEdit.txtZoneName_GotFocus", "frmEdit.txtZoneDescription_GotFocus",
                                            "frmEdit.picIcon_Click"};

}  // namespace

GeneralPage::GeneralPage(forms::Context& context, ui::Control& page)
    : details(context, page, EditPageSize.width, "<-- Click to change icon.", GeneralTraces), cmdGeneral("cmdGeneral") {
    addPageButtons(cmdGeneral, page);
}
