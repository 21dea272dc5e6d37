// What the program calls itself, in titles and in the error log.
#pragma once

inline constexpr const char* AppTitle = "Tavimor";
inline constexpr const char* AppVersion = "5.0.32";
