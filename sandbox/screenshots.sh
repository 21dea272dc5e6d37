#!/bin/bash
# usage: sandbox/screenshots.sh [PROGRAM.exe]
#
# Goes through the program (build/win64/Tavimor.exe) with the keyboard and takes pictures of its windows: at 96 dots per
# inch into docs/screenshots/ and, with the windows not shown there, build/screenshots/96/; at 192 into
# build/screenshots/192/.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/sandbox/stage.sh"
program=${1:-$root/build/win64/Tavimor.exe}
[ -e "$program" ] || fail "$program is not built: make build"
settings='HKEY_CURRENT_USER\Software\Pellweather Inc.\Tavimor'

# One key after another: the program needs its time to open a menu.
press() { xdotool key --delay 150 "$@"; }

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

main_window() {
    import_lines "[-$settings]"
    start_tavimor "$program"
    wait_for_window '^Tavimor - '
    picture "$shown/main.png"
    press alt+v b
    picture "$shown/main-basic.png" "$shown/main.png"
    press alt+v a
    picture "$work/advanced.png" "$shown/main-basic.png"
}

# From the main window by way of the properties of the zone, where a click on its icon opens the file dialog.
icon_selector() {
    press alt+e t
    wait_for_window '^Edit Zone$'
    picture "$shown/edit-general.png"
    press Tab Tab Tab space
    wait_for_window '^Browse for icons$'
    press ctrl+a
    xdotool type --delay 30 'C:\windows\system32\shell32.dll'
    press Return
    wait_for_window '^Select Icon$'
    picture "$shown/icon-selector.png"
}

# The other pages, the custom settings, and the dialog for a new zone.
zone_dialogs() {
    start_tavimor "$program"
    wait_for_window '^Tavimor - '
    press alt+e t
    wait_for_window '^Edit Zone$'
    press Right
    picture "$shown/edit-flags.png"
    press Right
    picture "$shown/edit-security.png"
    press Tab Tab Tab space # nothing to apply: the tab ring has the three boxes and the settings
    press Tab space
    wait_for_window '^Custom Security$'
    picture "$shown/custom-security.png"
    press Escape Escape
    press alt+e a
    wait_for_window '^Add Zone$'
    xdotool type --delay 30 'Partners'
    press Tab
    xdotool type --delay 30 'This zone contains Web sites of the companies we work with.'
    picture "$shown/add-zone.png"
}

# A backup, the dialog that lists it, and the zone of a mail identity.
backup_and_mail() {
    rm -rf "$WINEPREFIX/drive_c/Tavimor/Backups"
    start_tavimor "$program"
    wait_for_window '^Tavimor - '
    press alt+f b
    wait_for_window '^Backup Security Zones$'
    xdotool type --delay 30 'Before installing the new toolbar'
    picture "$shown/backup.png"
    press Return
    wait_for_end_of_window '^Backup Security Zones$'
    press alt+f r
    wait_for_window '^Preview/Restore Backup$'
    press Down Up
    picture "$shown/restore.png"
    press Escape
    press alt+e o Return
    wait_for_window '^OE Security Zone$'
    picture "$shown/mail.png"
}

# A settings key without its lengths is something that the program does not expect.
error_dialog() {
    import_lines "[-$settings]" "[$settings]"
    start_tavimor "$program"
    wait_for_window '^Error$'
    picture "$shown/error.png"
}

prepare pictures
open_screen
set_value 'Control Panel\Desktop' CursorBlinkRate REG_SZ 1000000 # a caret that blinks lets no two pictures be equal
for dpi in 96 192; do
    shown=$root/docs/screenshots other=$root/build/screenshots/$dpi
    [ $dpi = 96 ] || shown=$other
    set_value 'Control Panel\Desktop' LogPixels REG_DWORD $dpi
    end_tavimor # Windows' measures are read when the first program of a session starts
    main_window
    icon_selector
    end_tavimor
    zone_dialogs
    end_tavimor
    backup_and_mail
    end_tavimor
    error_dialog
    end_tavimor
done
import_lines "[-$settings]"
echo "The pictures are in docs/screenshots/ and build/screenshots/."
