// How the dialogs change a zone.
#pragma once

#include <functional>
#include <string>

#include "forms/Context.h"

namespace forms {

// Runs `change`, which writes into `zone`. The registry session is silent about what the system refuses; here the user
// is told, with one message, when anything was refused or could not be read. What could be written stays written. True
// when everything was.
bool change(forms::Context& context, const std::string& zone, const std::function<void()>& change);

// Whether the zone's key is there.
bool exists(forms::Context& context, const std::string& zone);

}  // namespace forms
