// The identities of the mail client, as a menu, and the zone in which each reads its mail.
#pragma once

#include <string>

#include "forms/Context.h"
#include "ui/Menu.h"

namespace mail {

inline constexpr const char* IdentitiesKey = "HKEY_CURRENT_USER\\Identities";  // one subkey an identity
inline constexpr const char* UserName = "Username";                            // in an identity's key
// Below an identity's key. The blank at the end is part of the text; the registry session drops it.
inline constexpr const char* SettingsKey = "Software\\Microsoft\\Outlook Express\\5.0 ";
inline constexpr const char* SecurityZone = "Security Zone";
inline constexpr const char* SecurityZoneLocked = "Security Zone Locked";

// The full path of an identity's mail settings.
std::string settingsPath(const std::string& identity);
// Moves the session there, or wherever `settings` leads.
Found goToSettings(clsRegistry& registry, const std::string& settings);

// A name as a menu shows it letter by letter: "&" would mark an access key, and "-" alone draws a line.
std::string menuCaption(const std::string& name);

// Makes an item of `menu` for each identity that can be read: its name as caption, its key as tag. The first takes over
// the item that is there already, which is enabled then; without identities that one stays as it is.
void fillMenu(forms::Context& context, ui::MenuItem& menu);

// The name of an identity, and of the zone that it reads its mail in. The latter throws util::Error for an identity
// without mail settings.
std::string nameOf(forms::Context& context, const std::string& identity);
std::string zoneNameOf(forms::Context& context, const std::string& identity);

}  // namespace mail
