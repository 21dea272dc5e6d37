#!/bin/bash
# usage: sandbox/run.sh [--fresh] [--virtual] [PROGRAM.exe]
#
# Runs the program (build/win64/Tavimor.exe) on a machine of its own that has the browser's data. What is changed there
# stays for the next time; --fresh starts over. Without a display, or with --virtual, it runs on a screen that nobody
# sees, leaves a picture of its window in build/screenshots/ and ends.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/sandbox/stage.sh"

fresh= program=$root/build/win64/Tavimor.exe
for argument; do
    case $argument in
        --fresh) fresh=fresh ;;
        --virtual) unset DISPLAY ;;
        -*) fail "$(sed -n 's/^# //p' "$0")" ;;
        *) program=$argument ;;
    esac
done
[ -e "$program" ] || fail "$program is not built: make build"

prepare run "$fresh"
if [ -n "${DISPLAY:-}" ]; then
    set_value 'Software\Wine\X11 Driver' Managed REG_SZ Y
    start_tavimor "$program"
    echo "Tavimor is on your screen. Its registry and its files are in ${WINEPREFIX#"$root/"}."
    wait $started || fail "it ended with code $?: $(cat "$work/program.log")"
else
    open_screen
    start_tavimor "$program"
    wait_for_window '^Tavimor - '
    picture "$root/build/screenshots/run.png"
    echo "There is no display here. Tavimor has run on a virtual screen; its main window is in build/screenshots/run.png."
fi
