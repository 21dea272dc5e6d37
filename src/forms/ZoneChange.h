// How the windows change zones that other programs may be changing, too.
#pragma once

#include <optional>
#include <string>

#include "forms/Context.h"
#include "util/FunctionRef.h"

namespace forms {

// Runs `change`. The registry session is silent about what the system refuses. When anything was refused or could not
// be read, the user is told here, once, with the message that `refusal` returns. What could be written stays written.
// True when everything was.
bool attempt(Context& context, util::FunctionRef<void()> change, util::FunctionRef<std::string()> refusal);
// The same for a change of one zone: the message says that it has only part of the new values, or is `withoutZone`
// when there is no such zone.
bool change(Context& context, const std::string& zone, util::FunctionRef<void()> change,
            const std::string& withoutZone = "This zone no longer exists. Your changes were not saved.");

// Whether the zone's key is there; one that cannot be read is. The session ends in it.
bool exists(Context& context, const std::string& zone);

// Whether the zone is still the one that is shown to the user under the name `shownName`. Another program may have
// renamed it, deleted it, or deleted one with a lower number, so that it now holds the next zone's contents; or it
// cannot be read. The user is told then, with the `consequence` for the command, and the main window reads its list
// again.
bool stillShown(Context& context, const std::string& zone, const std::string& shownName,
                const std::string& consequence = "Your changes were not saved.");

// The number of a new zone: zones are numbered from 0, so it is their count as they are now. Nothing when there is a
// zone of that number already or the zones cannot be read; the user is told then, and the main window reads its list
// again.
std::optional<std::string> numberOfNewZone(Context& context);

}  // namespace forms
