#!/bin/bash
# usage: sandbox/screenshots.sh [PROGRAM.exe [DOTS...]]
#
# Goes through the program (build/win64/Tavimor.exe) with the keyboard and takes pictures of its windows: at 96 dots to
# the inch into docs/screenshots/, at 192 into docs/screenshots/192/, those with the most colours of their own in high
# contrast into docs/screenshots/contrast/. With DOTS ("contrast" is one of them) only those, into build/screenshots/DOTS/.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/sandbox/stage.sh"
program=${1:-$root/build/win64/Tavimor.exe}
shift $(($# ? 1 : 0))
[ -e "$program" ] || fail "$program is not built: make build"
settings='HKEY_CURRENT_USER\Software\Pellweather Inc.\Tavimor'

# One key after another: the program needs its time to open a menu.
press() { xdotool key --delay 150 "$@"; }

# press_for TITLE KEY...: keys that open a window. On a busy machine a menu may open too late for its key.
press_for() {
    local title=$1
    shift
    for _ in 1 2 3; do
        press "$@"
        ! has_window "$title" 40 || return 0
        press Escape Escape
    done
    fail "no window \"$title\""
}

# import_lines LINE...: as a registry file.
import_lines() {
    printf '%s\n' REGEDIT4 "$@" >"$work/lines.reg"
    import_file "$work/lines.reg"
}

end_tavimor() {
    wineserver -k || true
    wineserver -w
    [ -z "$started" ] || wait "$started" 2>/dev/null || true
}

open_main_window() {
    start_tavimor "$program"
    wait_for_window '^Tavimor - '
    picture "$work/main.png"
}

main_window() {
    import_lines "[-$settings]"
    open_main_window
    picture "$shown/main.png"
    press alt+v b
    picture "$shown/main-basic.png" "$shown/main.png"
    press alt+v a
    picture "$work/advanced.png" "$shown/main-basic.png"
}

# From the main window by way of the properties of the zone, where a click on its icon opens the file dialog.
icon_selector() {
    press_for '^Edit Zone$' alt+e t
    picture "$shown/edit-general.png"
    press_for '^Browse for icons$' Tab Tab Tab space
    press ctrl+a
    xdotool type --delay 30 'C:\windows\system32\shell32.dll'
    press_for '^Select Icon$' Return
    picture "$shown/icon-selector.png" /dev/null 10 # its progress bar may stand still for a while
}

# The other pages, the custom settings, and the dialog for a new zone.
zone_dialogs() {
    open_main_window
    press_for '^Edit Zone$' alt+e t
    picture "$work/edit.png"
    press Right
    picture "$shown/edit-flags.png" "$work/edit.png"
    press Right
    picture "$shown/edit-security.png" "$shown/edit-flags.png"
    press Tab Tab Tab space # nothing to apply: the tab ring has the three boxes and the settings
    press_for '^Custom Security$' Tab space
    picture "$shown/custom-security.png"
    press Escape Escape
    wait_for_end_of_window '^Edit Zone$'
    press_for '^Add Zone$' alt+e a
    picture "$work/add.png"
    xdotool type --delay 30 'Partners'
    press Tab
    xdotool type --delay 30 'This zone contains Web sites of the companies we work with.'
    picture "$shown/add-zone.png" "$work/add.png"
}

# A backup, the dialog that lists it, and the zone of a mail identity.
backup_and_mail() {
    rm -rf "$WINEPREFIX/drive_c/Tavimor/Backups"
    open_main_window
    press_for '^Backup Security Zones$' alt+f b
    picture "$work/backup.png"
    xdotool type --delay 30 'Before installing the new toolbar'
    picture "$shown/backup.png" "$work/backup.png"
    press Return
    wait_for_end_of_window '^Backup Security Zones$'
    press_for '^Preview/Restore Backup$' alt+f r
    press Down Up
    picture "$shown/restore.png"
    press Escape
    wait_for_end_of_window '^Preview/Restore Backup$'
    press_for '^OE Security Zone$' alt+e o Return
    picture "$shown/mail.png"
}

# A settings key without its lengths is something that the program does not expect.
error_dialog() {
    import_lines "[-$settings]" "[$settings]"
    start_tavimor "$program"
    wait_for_window '^Error$'
    picture "$shown/error.png"
}

# The system's colours as it was made with them, or those of a scheme in high contrast.
normal_colours() {
    [ -e "$colours" ] || run_quietly "$work/colours.log" regedit /e 'C:\colours.reg' "$colour_key"
    import_file "$colours"
    set_value "$theme" ThemeActive REG_SZ 1
}
high_contrast() {
    local name
    for name in ActiveBorder AppWorkSpace Background ButtonFace InactiveBorder InfoWindow Menu MenuBar Scrollbar Window; do
        echo "\"$name\"=\"0 0 0\""
    done >"$work/contrast"
    for name in ButtonText InfoText MenuText TitleText WindowFrame WindowText ButtonDkShadow ButtonShadow HilightText; do
        echo "\"$name\"=\"255 255 255\""
    done >>"$work/contrast"
    for name in ActiveTitle GradientActiveTitle Hilight MenuHilight; do
        echo "\"$name\"=\"128 0 128\""
    done >>"$work/contrast"
    for name in InactiveTitle GradientInactiveTitle GrayText ButtonHilight ButtonLight; do
        echo "\"$name\"=\"0 255 0\""
    done >>"$work/contrast"
    import_lines "[$colour_key]" "$(cat "$work/contrast")"
    set_value "$theme" ThemeActive REG_SZ 0
}

# pictures DOTS FOLDER
pictures() {
    shown=$2
    echo "$shown"
    normal_colours
    [ "$1" != contrast ] || high_contrast
    set_value 'Control Panel\Desktop' LogPixels REG_DWORD "${1/contrast/96}"
    end_tavimor # Windows' measures are read when the first program of a session starts
    main_window
    icon_selector
    end_tavimor
    zone_dialogs
    end_tavimor
    if [ "$1" != contrast ]; then
        backup_and_mail
        end_tavimor
        error_dialog
        end_tavimor
    fi
    # Not before all have been compared.
    pngquant --ext .png --force --strip 256 "$shown"/*.png
    optipng -quiet "$shown"/*.png
}

prepare pictures
colours=$WINEPREFIX/drive_c/colours.reg colour_key='HKEY_CURRENT_USER\Control Panel\Colors'
theme='Software\Microsoft\Windows\CurrentVersion\ThemeManager'
open_screen
set_value 'Control Panel\Desktop' CursorBlinkRate REG_SZ 1000000 # a caret that blinks lets no two pictures be equal
if [ $# -gt 0 ]; then
    for dots; do pictures "$dots" "$root/build/screenshots/$dots"; done
else
    pictures 96 "$root/docs/screenshots"
    pictures 192 "$root/docs/screenshots/192"
    pictures contrast "$root/docs/screenshots/contrast"
fi
normal_colours
import_lines "[-$settings]"
