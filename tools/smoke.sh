#!/bin/bash
# usage: tools/smoke.sh win98|nt40|win2k [PROGRAM.exe]
#
# Starts the released program (dist/Tavimor.exe) as people do and uses it, on a Wine that is that version of Windows.
# Closes with "N passed, N failed, N skipped".
set -u
cd "$(dirname "$0")/.."
version=$1 program=${2:-dist/Tavimor.exe}
export WINE_BITS=32 WINE_PREFIX=release

tools/run-on-wine.sh reg add 'HKCU\Software\Wine' /v Version /d "$version" /f >/dev/null || exit 1
tools/run-on-wine.sh regedit /s sandbox/browser.reg || exit 1
tools/run-suite.sh tools/run-on-wine.sh build/win32/tests/tavimor-smoke.exe "$program" "$version"
code=$?
tools/run-on-wine.sh --end
exit $code
