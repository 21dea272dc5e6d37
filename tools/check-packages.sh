#!/bin/bash
# usage: tools/check-packages.sh
#
# Installs what the set-up program in dist/ brings and removes it, on Wine and without a question, looks into the zip,
# and closes with "N passed, N failed".
set -u
cd "$(dirname "$0")/.."
export WINE_BITS=32 WINE_PREFIX=release
prefix=$(tools/prefix.sh $WINE_PREFIX) || exit 1
. tools/checks.sh

version=$(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
setup=dist/tavimor-$version-setup.exe zip=dist/tavimor-$version.zip
home="$prefix/drive_c/Program Files/Tavimor"
entry="$prefix/drive_c/ProgramData/Microsoft/Windows/Start Menu/Programs/Tavimor.lnk"
uninstall='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Tavimor'
settings='HKCU\Software\Pellweather Inc.\Tavimor'
backup="$home/Backups/1-1-2001 0000.reg" log="$home/Logs/ErrorLog-1-1-2001.log"

wine() { tools/run-on-wine.sh "$@"; }
in_registry() { wine reg query "$1" >/dev/null 2>&1; }
registered() { wine reg query "$uninstall" /v "$1" | sed -n "s/^ *$1 *REG_SZ *//p"; }
within_half_a_minute() {
    local tries
    for tries in $(seq 300); do
        ! "$@" || return 0
        sleep 0.1
    done
    return 1
}

install() { wine "$setup" /S; }
# What the uninstaller does, too, as it cannot delete itself: a copy goes on. This one is waited for. It wants the folder
# without quotes, which a batch file gives it.
remove() {
    cp "$home/Uninstall.exe" "$prefix/drive_c/removing.exe"
    echo "@C:\\removing.exe $* _?=C:\\Program Files\\Tavimor" >"$prefix/drive_c/remove.bat"
    wine cmd /c 'C:\remove.bat'
}

sums() { (cd dist && sha256sum -c SHA256SUMS); }
zip_holds_the_program() {
    local folder=tavimor-$version
    unzip -p "$zip" "$folder/Tavimor.exe" | cmp - dist/Tavimor.exe && unzip -p "$zip" "$folder/README.txt" | grep Backup &&
        unzip -p "$zip" "$folder/LICENSE.txt" | grep 'MIT License'
}
installed() {
    cmp dist/Tavimor.exe "$home/Tavimor.exe" && [ -s "$home/README.txt" ] && [ -s "$home/LICENSE.txt" ] &&
        grep -qaF 'C:\Program Files\Tavimor\Tavimor.exe' "$entry" && [ "$(registered DisplayVersion)" = "$version" ]
}
gone() {
    ls -R "$home"
    [ ! -e "$home/Tavimor.exe" ] && [ ! -e "$home/README.txt" ] && [ ! -e "$home/LICENSE.txt" ] && [ ! -e "$entry" ] &&
        ! in_registry "$uninstall" && ! in_registry "$settings"
}
refused_while_running() {
    wine 'C:\Program Files\Tavimor\Tavimor.exe' &
    local program=$! code
    within_half_a_minute in_registry "$settings" || { echo "it does not start"; return 1; }
    remove /S
    code=$?
    wine --end
    wait $program
    [ $code = 2 ] && installed
}
keeps_what_is_the_users() { gone && [ "$(cat "$backup" "$log")" = "kept kept" ]; }
registered_command_leaves_nothing() {
    local command
    command=$(registered QuietUninstallString)
    [ "$command" = '"C:\Program Files\Tavimor\Uninstall.exe" /S' ] || { echo "$command"; return 1; }
    wine 'C:\Program Files\Tavimor\Uninstall.exe' /S /ALL
    within_half_a_minute [ ! -e "$home" ]
}

wine reg add 'HKCU\Software\Wine' /v Version /d win98 /f >/dev/null || exit 1
wine regedit /s sandbox/browser.reg || exit 1
wine reg delete "$settings" /f >/dev/null 2>&1
rm -rf "$home"
check "the sums are right" sums
check "the zip holds the program" zip_holds_the_program
check "the set-up program asks for nothing that Windows 95 lacks" tools/check-imports.sh --95 "$setup"
check "the set-up program installs" install
check "what it installs is there" installed
check "a program that is running is not removed" refused_while_running
mkdir -p "$home/Backups" "$home/Logs"
echo -n "kept " >"$backup"
echo -n "kept" >"$log"
check "it can be removed" remove /S
check "backups and error logs stay" keeps_what_is_the_users
check "it can be installed again" install
check "nothing stays when that is asked for" registered_command_leaves_nothing
check "nothing is left elsewhere" gone
wine --end
closing_line
