#!/bin/bash
# usage: tools/run-on-wine.sh PROGRAM.exe [ARGUMENT...]
#
# Runs a Windows program (with WINE_BITS=32 a 32-bit one) without a display, in the prefix WINE_PREFIX (test). Prints
# what it printed, and returns its exit code; 124 when it took longer than WINE_SECONDS (300). The Wine server is kept
# for ten seconds, for the next program; `tools/run-on-wine.sh --end` ends it.
set -u
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/wine-env.sh"
kind=${WINE_PREFIX:-test}
if [ "$1" = --end ]; then
    [ ! -d "$prefixes/$kind" ] || WINEPREFIX=$prefixes/$kind wineserver -k
    exit 0
fi
WINEPREFIX=$("$root/tools/prefix.sh" "$kind") || exit 1
export WINEPREFIX
unset DISPLAY

# Into a file: Wine's background processes inherit a pipe and hold it open long after the program's end.
output=$(mktemp)
trap 'rm -f "$output"' EXIT
wineserver -p10 >"$output" 2>&1 </dev/null
timeout -k 5 "${WINE_SECONDS:-300}" "$wine" "$@" >"$output" 2>&1 </dev/null
code=$?
tr -d '\r' <"$output"
[ $code != 124 ] || echo "stopped after ${WINE_SECONDS:-300} seconds: $1"
exit $code
