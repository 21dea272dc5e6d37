// How the dialogs find and change a zone.
#pragma once

#include <functional>
#include <string>

#include "forms/Context.h"

namespace forms {

// Moves the session to the zone that stands at the place `zone` (its number, from 0) in the registry's list of zones.
// With gaps in the numbers, or from ten zones on where the system lists "10" before "2", that is another zone than the
// one of that name; the levels and settings have always been read so. False when no zone stands at that place.
bool goToZoneByPlace(clsRegistry& registry, const std::string& zone);

// Runs `change`, which writes into `zone`. The registry session is silent about what the system refuses; here the user
// is told, with one message, when anything was refused or could not be read. What could be written stays written. True
// when everything was.
bool change(forms::Context& context, const std::string& zone, const std::function<void()>& change);

// Whether the zone's key is there.
bool exists(forms::Context& context, const std::string& zone);

}  // namespace forms
