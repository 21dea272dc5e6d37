#!/bin/bash
# usage: tools/check-packages.sh
#
# Installs what the set-up program in dist/ brings, moves it and removes it, on Wine; lets it fail as it can; looks into
# the zip; and closes with "N passed, N failed".
set -u
cd "$(dirname "$0")/.."
export WINE_BITS=32 WINE_PREFIX=release
prefix=$(tools/prefix.sh $WINE_PREFIX) || exit 1
. tools/checks.sh

version=$(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
setup=dist/tavimor-$version-setup.exe zip=dist/tavimor-$version.zip
drive=$prefix/drive_c
home="$drive/Program Files/Tavimor" other=$drive/Other
entry="$drive/ProgramData/Microsoft/Windows/Start Menu/Programs/Tavimor.lnk"
uninstall='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Tavimor'
settings='HKCU\Software\Pellweather Inc.\Tavimor' others='HKU\S-1-5-21-1-2-3-1001\Software\Pellweather Inc.\Tavimor'
browser='HKLM\Software\Microsoft\Internet Explorer'
backup="Backups/1-1-2001 0000.reg" log="Logs/ErrorLog-1-1-2001.log"

wine() { tools/run-on-wine.sh "$@"; }
in_registry() { wine reg query "$1" >/dev/null 2>&1; }
registered() { wine reg query "$uninstall" /v "$1" | sed -n "s/^ *$1 *REG_SZ *//p"; }
set_value() { wine reg add "$1" /v "$2" /d "$3" /f >/dev/null; }
within_half_a_minute() {
    local tries
    for tries in $(seq 300); do
        ! "$@" || return 0
        sleep 0.1
    done
    return 1
}
helper() {
    mkdir -p build/packages
    makensis -V1 -WX -NOCD -DRESULT="$PWD/build/packages/$1.exe" "tests/packages/$1.nsi" && wine "build/packages/$1.exe" "${@:2}"
}

install() { wine "$setup" /S; }
# What takes a folder last wants it without quotes, which a batch file gives it.
unquoted() {
    echo "@$*" >"$drive/unquoted.bat"
    wine cmd /c 'C:\unquoted.bat'
}
install_into() {
    cp "$setup" "$drive/setup.exe"
    unquoted 'C:\setup.exe' /S "/D=$1"
}
# What the uninstaller does, too, as it cannot delete itself: a copy goes on. This one is waited for.
remove() {
    cp "$home/Uninstall.exe" "$drive/removing.exe"
    unquoted 'C:\removing.exe' "$*" '_?=C:\Program Files\Tavimor'
}
# Puts what the program keeps beside itself into a folder.
keep_files_in() {
    mkdir -p "$1/Backups" "$1/Logs"
    echo -n "kept " >"$1/$backup"
    echo -n "kept" >"$1/$log"
}
kept_in() { [ "$(cat "$1/$backup" "$1/$log")" = "kept kept" ]; }

sums() { (cd dist && sha256sum -c SHA256SUMS); }
zip_holds_the_program() {
    local folder=tavimor-$version
    unzip -p "$zip" "$folder/Tavimor.exe" | cmp - dist/Tavimor.exe &&
        unzip -p "$zip" "$folder/TavimorCmd.exe" | cmp - dist/TavimorCmd.exe && unzip -p "$zip" "$folder/README.txt" | grep Backup &&
        unzip -p "$zip" "$folder/LICENSE.txt" | grep 'MIT License' && unzip -p "$zip" "$folder/wine-ie5.reg" | grep REGEDIT4
}
change_log_begins_with_this_version() { grep -m 1 '^## ' CHANGELOG.md | tee /dev/stderr | grep -qF "## $version"; }
# usage: installed FOLDER PATH    FOLDER as Wine's programs know it
installed() {
    cmp dist/Tavimor.exe "$2/Tavimor.exe" && cmp dist/TavimorCmd.exe "$2/TavimorCmd.exe" && [ -s "$2/README.txt" ] && [ -s "$2/LICENSE.txt" ] &&
        grep -qaF "$1\\Tavimor.exe" "$entry" && [ "$(registered DisplayVersion)" = "$version" ] &&
        [ "$(registered QuietUninstallString)" = "\"$1\\Uninstall.exe\" /S" ]
}
installed_at_home() { installed 'C:\Program Files\Tavimor' "$home"; }
gone() {
    ls -R "$home"
    [ ! -e "$home/Tavimor.exe" ] && [ ! -e "$home/TavimorCmd.exe" ] && [ ! -e "$home/README.txt" ] && [ ! -e "$home/LICENSE.txt" ] && [ ! -e "$entry" ] &&
        ! in_registry "$uninstall" && ! in_registry "$settings"
}

says_that_the_browser_is_another() {
    set_value "$browser" Version 6.00.2800.1106
    wine "$setup" &
    helper answer
    wine --end # it waits for a folder to be chosen
    wait $!
    cat "$drive/message.txt"
    grep -q 'with Internet Explorer 5.x alone. This computer has version 6.00.2800.1106' "$drive/message.txt"
}
# usage: ends_with CODE COMMAND...
ends_with() {
    local expected=$1 code
    shift
    "$@"
    code=$?
    echo "code $code"
    [ $code = "$expected" ]
}
refused_without_rights() {
    local code=0
    wine reg add "${uninstall%\\*}" /f && helper rights /DENY || return 1
    ends_with 4 "$@" || code=1
    helper rights /ALLOW
    return $code
}
install_refused_without_rights() { refused_without_rights install && gone && [ ! -e "$home" ]; }
remove_refused_without_rights() { refused_without_rights remove /S && installed_at_home; }
refused_where_nothing_can_be_written() { ends_with 3 install_into 'Z:\proc\Tavimor' && gone; }

# As whoever calls it from a script sees it.
command_line_works() {
    local program='C:\Program Files\Tavimor\TavimorCmd.exe'
    wine "$program" --version | tr -d '\r' | grep -x "TavimorCmd $version" && wine "$program" zones | grep Internet &&
        wine "$program" diff now && ends_with 1 wine "$program" diff zone:1 zone:3 && ends_with 2 wine "$program" show
}

start_tavimor() {
    wine reg delete "$settings" /f >/dev/null 2>&1
    wine 'C:\Program Files\Tavimor\Tavimor.exe' &
    program=$!
    within_half_a_minute in_registry "$settings" || { echo "it does not start"; wine --end; return 1; }
}
starts_after() {
    set_value "$browser" Version 9.11.9600.18376
    "$@"
    start_tavimor || return 1
    wine --end
    wait $program || true # it was ended
}
command_of_the_text() {
    local command
    command=$(sed -n 's/^ *\(wine reg add .*\)/\1/p' packaging/README.txt)
    echo "$command"
    eval "$command"
}
file_of_the_package() { wine regedit 'C:\Program Files\Tavimor\wine-ie5.reg'; }
# Neither is anything changed; the entry of the version before stays.
refused_while_running() {
    local result=0
    set_value "$uninstall" DisplayVersion before
    start_tavimor || return 1
    ends_with 2 install && ends_with 2 install_into 'C:\Other' && ends_with 2 remove /S &&
        [ "$(registered DisplayVersion)" = before ] && [ -e "$home/Tavimor.exe" ] && [ ! -e "$other" ] || result=1
    wine --end
    wait $program
    return $result
}
moves_into_another_folder() {
    keep_files_in "$home"
    install_into 'C:\Other' && installed 'C:\Other' "$other" && kept_in "$other" && [ ! -e "$home" ]
}
# By another name of the folder it is in it is not moved.
stays_where_it_is() {
    local name
    name=Z:${other//\//\\}
    install_into "$name" && installed "$name" "$other" && kept_in "$other"
}
comes_back() {
    install_into 'C:\Program Files\Tavimor' && installed_at_home && kept_in "$home" && [ ! -e "$other" ]
}
leaves_what_is_the_users() {
    set_value "$others" Height 5000
    remove /S && gone && kept_in "$home" && in_registry "$others"
}
registered_command_leaves_nothing() {
    wine 'C:\Program Files\Tavimor\Uninstall.exe' /S /ALL
    within_half_a_minute [ ! -e "$home" ]
}

wine reg add 'HKCU\Software\Wine' /v Version /d win98 /f >/dev/null || exit 1
set_value 'HKCU\Software\Wine\AppDefaults\rights.exe' Version win2k # Windows 98 knows no rights
wine reg delete "$settings" /f >/dev/null 2>&1
wine reg delete "$uninstall" /f >/dev/null 2>&1
rm -rf "$home" "$other" "$entry"
check "the sums are right" sums
check "the zip holds the program" zip_holds_the_program
check "the change log begins with this version" change_log_begins_with_this_version
check "the set-up program asks for nothing that Windows 95 lacks" tools/check-imports.sh --95 "$setup"
check "the set-up program says that the browser is another one" says_that_the_browser_is_another
check "nothing is installed without the rights" install_refused_without_rights
check "nothing is registered where nothing can be written" refused_where_nothing_can_be_written
check "the set-up program installs" install
check "what it installs is there" installed_at_home
check "the program without windows answers from a command line" command_line_works
check "nothing is removed without the rights" remove_refused_without_rights
check "on Wine the program starts after the command of its text" starts_after command_of_the_text
check "on Wine the program starts after the file that comes with it" starts_after file_of_the_package
check "a program that is running is neither replaced nor removed" refused_while_running
check "in another folder it takes its backups along and leaves nothing" moves_into_another_folder
check "in the same folder by another name it stays" stays_where_it_is
check "it can go back" comes_back
check "removing leaves backups, error logs and other users' settings" leaves_what_is_the_users
check "it can be installed again" install
check "nothing stays when that is asked for" registered_command_leaves_nothing
check "nothing is left elsewhere" gone
wine --end
closing_line
