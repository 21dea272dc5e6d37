#!/bin/bash
# usage: tools/setup.sh [VERB]
#
# Installs the Debian packages that `make VERB` needs, or all that any verb needs. Says what it installs; where all is
# there it says and does nothing, and needs no network.
set -u
base='make cmake'
native="$base g++ libgtest-dev googletest"
windows='ninja-build g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-win32 wine wine64 fonts-wine'
pictures='xvfb xauth imagemagick xdotool pngquant optipng'
packages='nsis zip unzip'
# What starts 32-bit programs; a machine that has Debian's 32-bit architecture has it from there.
[ -e /lib/ld-linux.so.2 ] || windows="$windows libc6-i386"
lint='ninja-build clang clang-tidy clang-format'
bench='libbenchmark-dev'
fuzz='make g++ clang libclang-rt-14-dev'

verb=${1:-all}
# What a verb needs.
packages_of() {
    case $1 in
        test-native) echo $native ;;
        build) echo $base $windows ;;
        release) echo $base $windows $packages ;;
        test) echo $native $windows $packages ;;
        run | screenshots) echo $base $windows $pictures ;;
        lint | format) echo $native $windows $lint ;;
        bench) echo $native $windows $bench ;;
        fuzz) echo $fuzz ;;
        all) echo $native $windows $packages $pictures $lint $fuzz $bench librsvg2-bin file ;;
        *) return 1 ;;
    esac
}
wanted=$(packages_of "$verb") || { echo "no such verb: $verb" >&2; exit 2; }

installed() { [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }
missing() {
    local package
    for package in $wanted; do
        installed "$package" || echo "$package"
    done
}
# Says also which verbs have all they need.
give_up() {
    echo "$1" >&2
    local other works=
    for other in test-native build run release test lint screenshots fuzz bench; do
        wanted=$(packages_of $other)
        [ -n "$(missing)" ] || works="$works 'make $other'"
    done
    echo "What works without them:${works:- nothing yet}" >&2
    exit 1
}

lacking=$(missing | xargs)
[ -n "$lacking" ] || exit 0
command -v apt-get >/dev/null || give_up "These packages are missing, and there is no apt-get to install them: $lacking"
as_root=
if [ "$(id -u)" != 0 ]; then
    command -v sudo >/dev/null || give_up "There is no sudo. These packages are missing; install them as root: $lacking"
    as_root=sudo
fi

apt() { $as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300 "$@" </dev/null; }
echo "installing: $lacking"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
{ apt update && apt install --no-install-recommends $lacking; } >"$log" 2>&1
lacking=$(missing | xargs)
if [ -n "$lacking" ]; then
    # One package that cannot be had keeps apt from installing any: the others one by one, to tell which it is.
    for package in $lacking; do
        apt install --no-install-recommends "$package" >>"$log" 2>&1
    done
    lacking=$(missing | xargs)
fi
[ -z "$lacking" ] || { tail -n 20 "$log" >&2; give_up "These packages cannot be had: $lacking"; }
echo "installed"
