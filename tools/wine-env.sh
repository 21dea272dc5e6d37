# Sourced by every script that starts Wine: where it is, and how it runs without questions and chatter. With WINE_BITS=32
# in the environment it is the one of tools/wine32.sh, which runs 32-bit programs. Sets `wine` and `prefixes`, the folder
# of its prefixes; `wineserver` is its own. Before: `root`, the project's folder.

if [ "${WINE_BITS:-64}" = 32 ]; then
    "$root/tools/wine32.sh" || exit 3
    PATH=$root/build/wine32/bin:$PATH
    wine=$root/build/wine32/bin/wine
    prefixes=$root/build/wine32/prefixes
else
    # Debian's `wine` first says at length that its 32-bit half is missing; this is what it starts then.
    wine=/usr/lib/wine/wine64
    [ -x "$wine" ] || wine=$(command -v wine64 || command -v wine) || { echo "wine is missing: make setup" >&2; exit 3; }
    prefixes=$root/build/wine
fi

export WINEARCH=win${WINE_BITS:-64} WINEDEBUG="${WINEDEBUG:--all}"
# No questions about browser engines, no entries in the menus of the machine's desktop.
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=;winemenubuilder.exe=}"
