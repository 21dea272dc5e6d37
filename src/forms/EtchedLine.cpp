#include "forms/EtchedLine.h"

#include "util/procedure.h"

namespace basMain {

void EtchedLine(ui::Form& form, ui::Twips left, ui::Twips top, ui::Twips width) {
    procedure("basMain.EtchedLine", [&] {
        form.setLines({{left, top, left + width, top, ui::SystemColour::Shadow3D},
                       {left, top + 20, left + width - 5, top + 20, ui::SystemColour::Highlight3D}});
    });
}

}  // namespace basMain
