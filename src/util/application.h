// What the program calls itself, in titles and in the error log.
#pragma once

inline constexpr const char* AppTitle = "Tavimor";
extern const char* const AppVersion;  // as the build says
