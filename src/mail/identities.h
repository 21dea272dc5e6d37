// The identities of the mail client, as a menu, and the zone each reads its mail in.
#pragma once

#include <functional>
#include <string>

#include "forms/Context.h"
#include "ui/Menu.h"

namespace mail {

inline constexpr const char* IdentitiesKey = "HKEY_CURRENT_USER\\Identities";
// Below an identity. The blank behind it is part of the text; the registry session drops it.
inline constexpr const char* SettingsKey = "Software\\Microsoft\\Outlook Express\\5.0 ";
inline constexpr const char* ZoneValue = "Security Zone";
inline constexpr const char* LockValue = "Security Zone Locked";

// The full path of an identity's mail settings.
std::string settingsPath(const std::string& identity);

// A name as a menu shows it letter by letter: "&" would mark an access key, and "-" alone draws a line.
std::string menuCaption(const std::string& name);

// Makes an item of `menu` for each identity: its name as caption, its key as tag. The first takes over the item that
// is there already, which is enabled then; without identities that one stays as it is.
void fillMenu(forms::Context& context, ui::MenuItem& menu, const std::function<void(int index)>& onClick);

// The name of the zone that an identity reads its mail in. Throws util::Error for one without mail settings.
std::string zoneNameOf(forms::Context& context, const std::string& identity);

}  // namespace mail
