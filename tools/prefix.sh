#!/bin/bash
# usage: tools/prefix.sh KIND    makes the Wine prefix KIND unless it is there, and prints its path
#
# It is build/wine/KIND, or with WINE_BITS=32 build/wine32/prefixes/KIND. The kinds:
#
# test       windows without any display
# release    the same for the released program: as it came, and not as tests have left it
# run        the machine of `make run`
# pictures   windows on an X server that has no window manager: Wine draws their frames and title bars
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/wine-env.sh"
. "$root/tools/once.sh"

case $1 in
    test | release) key='Drivers' value='"Graphics"="null"' ;;
    run) key='Drivers' value='"Graphics"="x11"' ;;
    pictures) key='X11 Driver' value='"Managed"="N"' ;;
    *) echo "no such kind of prefix: $1" >&2; exit 2 ;;
esac
prefix=$prefixes/$1
# What tests run on follows this script; what a person has changed in the others stays.
follows=
[[ ! $1 =~ ^(test|release)$ ]] || follows=$0

make_prefix() {
    echo "making the Wine prefix $prefix (once, about fifteen seconds)" >&2
    [ ! -d "$prefix" ] || WINEPREFIX=$prefix wineserver -k || true
    rm -rf "$prefix"
    mkdir -p "$prefix/home"
    # Wine as Debian builds it does not find its own fonts: without Tahoma and Marlett texts take another width, and
    # letters stand on the title bar's buttons.
    mkdir -p "$prefix/drive_c/windows/Fonts"
    cp /usr/share/wine/fonts/*.ttf "$prefix/drive_c/windows/Fonts/"
    # Written before Wine's first start: the first process of a session chooses the display driver for all.
    printf 'WINE REGISTRY Version 2\n\n#arch=%s\n\n[Software\\\\Wine\\\\%s]\n%s\n' "$WINEARCH" "$key" "$value" >"$prefix/user.reg"
    # With a home of its own, or the prefix would link to the folders of whoever builds.
    run() { env -u DISPLAY HOME="$prefix/home" WINEPREFIX="$prefix" timeout 300 "$@" 9>&-; }
    # What crashes ends at once, and does not wait for a debugger.
    local no_debugger=(reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' /v Debugger /d false /f)
    if ! run "$wine" wineboot -i >"$prefix/wineboot.log" 2>&1 </dev/null ||
        ! run "$wine" "${no_debugger[@]}" >>"$prefix/wineboot.log" 2>&1 </dev/null || ! run wineserver -w; then
        echo "Wine could not make the prefix:" >&2
        cat "$prefix/wineboot.log" >&2
        exit 1
    fi
}

made_once "$prefix" "$follows" make_prefix
echo "$prefix"
