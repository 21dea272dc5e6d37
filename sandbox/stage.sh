# Sourced by the scripts of this folder: a machine to show the program on, a screen to see it, pictures of its windows.
# Before: `root`, the project's folder. After `prepare`: $WINEPREFIX is the machine, $wine starts a program on it.
. "$root/tools/wine-env.sh"
work=$root/build/sandbox
mkdir -p "$work"
screen=
started=

fail() {
    echo "$*" >&2
    exit 1
}

# prepare KIND [FRESH]: the machine (a Wine prefix, see tools/prefix.sh) with the browser's data and modules. What a
# user has changed on it since stays, unless FRESH is "fresh".
prepare() {
    WINEPREFIX=$prefixes/$1
    export WINEPREFIX
    if [ "${2:-}" = fresh ] && [ -d "$WINEPREFIX" ]; then
        WINEPREFIX=$WINEPREFIX wineserver -k || true
        rm -rf "$WINEPREFIX"
    fi
    "$root/tools/prefix.sh" "$1" >"$work/prefix.log"
    "$root/sandbox/modules/make-modules.sh" "$work/modules"
    # The control panel's module is asked for by its full path, too; the system's own explorer.exe has to stay.
    cp "$work/modules/inetcpl.cpl" "$work/modules/inetcplc.dll" "$WINEPREFIX/drive_c/windows/system32/"
    mkdir -p "$WINEPREFIX/drive_c/Tavimor"
    cp "$work/modules/explorer.exe" "$WINEPREFIX/drive_c/Tavimor/"
    if [ ! -e "$WINEPREFIX/.browser" ]; then
        import_file "$root/sandbox/browser.reg"
        touch "$WINEPREFIX/.browser"
    fi
}

# import_file FILE.reg
import_file() {
    cp "$1" "$WINEPREFIX/drive_c/import.reg"
    run_quietly "$work/import.log" regedit /s 'C:\import.reg' || fail "Wine could not import $1"
    rm "$WINEPREFIX/drive_c/import.reg"
}

# run_quietly LOG PROGRAM [ARGUMENT...]: into a file, because Wine's background processes would hold a pipe open.
run_quietly() {
    local log=$1
    shift
    timeout -k 5 60 "$wine" "$@" >"$log" 2>&1 </dev/null
}

# A setting of Wine or Windows that programs read when they start: KEY below HKEY_CURRENT_USER, NAME, TYPE, DATA.
set_value() {
    run_quietly "$work/reg.log" reg add "HKCU\\$1" /v "$2" /t "$3" /d "$4" /f || fail "Wine could not set $2"
}

# A screen that nobody sees, for pictures. It has no window manager, so Wine has to draw frames and title bars.
open_screen() {
    command -v Xvfb >/dev/null || fail "Xvfb is missing: make setup"
    rm -f "$work/screen"
    Xvfb -displayfd 6 -screen 0 1600x1200x24 -dpi 96 -nolisten tcp 6>"$work/screen" >"$work/screen.log" 2>&1 &
    screen=$!
    trap close_screen EXIT
    local tries
    for tries in $(seq 100); do
        [ ! -s "$work/screen" ] || break
        kill -0 $screen 2>/dev/null || break
        sleep 0.1
    done
    [ -s "$work/screen" ] || fail "Xvfb gives no screen: $(cat "$work/screen.log")"
    DISPLAY=:$(cat "$work/screen")
    export DISPLAY
    wineserver -k || true # what runs on another screen would not come over to this one
    wineserver -w
    set_value 'Software\Wine\X11 Driver' Managed REG_SZ N
}

close_screen() {
    [ -n "$screen" ] || return 0
    wineserver -k || true
    kill $screen 2>/dev/null || true
    wait $screen 2>/dev/null || true
    screen=
}

# start_tavimor PROGRAM.exe: lays it into the machine and starts it there in the background as `started`.
start_tavimor() {
    cp "$1" "$WINEPREFIX/drive_c/Tavimor/Tavimor.exe"
    (cd "$WINEPREFIX/drive_c/Tavimor" && exec "$wine" 'C:\Tavimor\Tavimor.exe') >"$work/program.log" 2>&1 </dev/null &
    started=$!
}

# has_window TITLE TRIES: sets `window` to the window whose title matches, as soon as there is one; four tries a second.
has_window() {
    local tries
    for tries in $(seq "$2"); do
        window=$(timeout 5 xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1) || true
        [ -z "$window" ] || return 0
        kill -0 $started 2>/dev/null || fail "the program ended without a window: $(cat "$work/program.log")"
        sleep 0.25
    done
    return 1
}
wait_for_window() { has_window "$1" 120 || fail "no window \"$1\" after half a minute"; }

# wait_for_end_of_window TITLE
wait_for_end_of_window() {
    local tries
    for tries in $(seq 120); do
        timeout 5 xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 || return 0
        sleep 0.25
    done
    fail "the window \"$1\" is still there after half a minute"
}

# picture FILE.png [BEFORE.png [TIMES]]: of `window`, as soon as it has looked the same three times, or TIMES more than
# once, and not like BEFORE.
picture() {
    local tries same=0
    mkdir -p "$(dirname "$1")"
    rm -f "$work/last.png"
    for tries in $(seq 120); do
        timeout 10 import -window "$window" +repage -strip -define png:exclude-chunks=date,time "$work/now.png" ||
            fail "no picture of the window for $1"
        if cmp -s "$work/now.png" "$work/last.png"; then same=$((same + 1)); else same=0; fi
        if [ $same -ge "${3:-2}" ] && ! cmp -s "$work/now.png" "${2:-/dev/null}"; then
            mv "$work/now.png" "$1"
            return 0
        fi
        mv "$work/now.png" "$work/last.png"
        sleep 0.2
    done
    fail "the window for $1 does not come to what it should show"
}
