// Name, description and icon of a zone, as the dialogs for an existing and for a new zone ask for them.
#pragma once

#include "forms/Context.h"
#include "icons/IconReference.h"
#include "ui/Label.h"
#include "ui/PictureButton.h"
#include "ui/TextBox.h"
#include "zones/Defaults.h"
#include "zones/ZoneRecord.h"

class ZoneDetails {
public:
    // The procedure names of the events, literals: each dialog has its own.
    struct Traces {
        const char* nameGotFocus;
        const char* descriptionGotFocus;
        const char* iconClick;
    };
    // Placed at the top of `parent` with the usual margins; `width` is that of the parent.
    ZoneDetails(forms::Context& context, ui::Parent parent, ui::Twips width, const char* hint, const Traces& traces);
    static constexpr ui::Twips Height = 2310;  // with the margins

    ui::Label zzzlblName;
    ui::TextBox txtZoneName;
    ui::Label zzzlblDescription;
    ui::TextBox txtZoneDescription;
    ui::PictureButton picIcon;
    ui::Label zzzlblHint;

    // Shows a zone as it is stored. An icon that can be used is not written again until another takes its place.
    void Show(const zones::ZoneTexts& texts);
    void ShowDefaults(const zones::BuiltInZone& defaults);
    void DrawIcon(const std::string& reference);

    // Whether there is all that a zone needs. A zone without icon gets the browser's own; a blank name or description
    // is refused with a message, and its box gets the focus.
    bool Complete();
    // Whether the browser can read it all; what is too long is refused in the same way.
    bool Fits();
    // Writes the values into the key where the session stands.
    void Write();

    // The icon as chosen so far; without a file when there is none.
    const icons::IconReference& icon() const { return icon_; }

private:
    void ChooseIcon();
    void UseIcon(icons::IconReference icon);
    bool Given(ui::TextBox& box, const char* message);
    bool ShortEnough(ui::TextBox& box, const char* what);
    void Refuse(ui::TextBox& box, const std::string& message);

    forms::Context& context_;
    icons::IconReference icon_;
    bool writesIcon_ = true;
};
