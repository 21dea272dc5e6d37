# Sourced by every script that starts Wine: where it is, and how it runs without questions and chatter.

# Debian's `wine` first says at length that its 32-bit half is missing; this is what it starts then.
wine=/usr/lib/wine/wine64
[ -x "$wine" ] || wine=$(command -v wine64 || command -v wine) || { echo "wine is missing: make setup" >&2; exit 3; }

export WINEARCH=win64 WINEDEBUG="${WINEDEBUG:--all}"
# No questions about browser engines, no entries in the menus of the machine's desktop.
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=;winemenubuilder.exe=}"
