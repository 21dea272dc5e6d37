// What all windows that list the zones have in common.
#pragma once

#include <string>

#include "forms/Context.h"
#include "icons/ExtractIcon.h"
#include "ui/Image.h"
#include "ui/ImageList.h"
#include "ui/ListView.h"

namespace forms {

inline constexpr const char* MissingName = "Missing Name";
inline constexpr const char* MissingDescription = "Missing Description";
// The text of a value, or `missing` when it is missing or empty.
std::string textOr(const TextReading& value, const char* missing);

// The controls that a list of zones is filled through.
struct ZoneListControls {
    ui::ListView& list;
    ui::ImageList& images;
    ui::Image& dummy;   // its picture is always the first of `images`
    ui::Image& holder;  // each icon is drawn here, copied into `images` and cleared
};

// Adds one item for each subkey of the zones key, in the registry's order: the zone's name, its icon as image i + 2 for
// item i (from 0), its key name as tag. Selects nothing. Icons come from and stay in `icons`.
void fillZoneList(Context& context, const ZoneListControls& controls, basMain::IconCache& icons);
// Empties list and images, so that it can be filled again.
void clearZoneList(const ZoneListControls& controls);

}  // namespace forms
