// Name, description and icon of a zone, as the dialogs for an existing and for a new zone ask for them.
#pragma once

#include "forms/Context.h"
#include "ui/Label.h"
#include "ui/PictureBox.h"
#include "ui/TextBox.h"
#include "zones/zones.h"

class ZoneDetails {
public:
    // The procedure names of the events, literals: each dialog has its own.
    struct Traces {
        const char* nameGotFocus;
        const char* descriptionGotFocus;
        const char* iconClick;
    };
    // Stands at the top of `place` with the usual margins; `width` is that of the place.
    ZoneDetails(forms::Context& context, ui::Parent parent, ui::Twips width, const char* hint, const Traces& traces);
    static constexpr ui::Twips Height = 2310;  // with the margins

    ui::Label zzzlblName;
    ui::TextBox txtZoneName;
    ui::Label zzzlblDescription;
    ui::TextBox txtZoneDescription;
    ui::PictureBox picIcon;
    ui::Label zzzlblHint;

    // The zone being edited, and its icon as chosen so far.
    zones::Selection selection;

    // Draws the icon of a reference, or that of the selection.
    void DrawIcon(const std::string& reference);
    void DrawIcon() { DrawIcon(selection.iconFile + "#" + selection.iconResource); }

    // Whether the zone can be saved. A zone without icon gets the browser's own; a blank name or description is
    // refused with a message, and its box gets the focus.
    bool Complete();
    // Writes the three values into the key where the session stands.
    void Write();

private:
    void ChooseIcon();
    bool Given(ui::TextBox& box, const char* message);

    forms::Context& context_;
};
