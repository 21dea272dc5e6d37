#!/bin/bash
# usage: tools/build.sh PRESET [TARGET...]    builds with all processors, in build/PRESET
set -eu
cd "$(dirname "$0")/.."
preset=$1
shift
mkdir -p "build/$preset"
log=build/$preset/build.log

# To a person the compiler's words as they come; into a log only when it fails.
quietly() {
    if [ -t 1 ]; then
        "$@"
    else
        "$@" >"$log" 2>&1 || { cat "$log"; exit 1; }
    fi
}

# A folder once configured does so again by itself when a CMake file or the list of sources changes, but not when its
# preset does. One whose configuring failed has a cache and nothing to build with.
command -v cmake >/dev/null || {
    echo "cmake is missing (Debian's package cmake): nothing can be built without it" >&2
    exit 1
}
cache=build/$preset/CMakeCache.txt
[ -e "build/$preset/build.ninja" ] || [ -e "build/$preset/Makefile" ] || rm -f "$cache"
if [ ! -e "$cache" ] || [ -n "$(find CMakePresets.json cmake -newer "$cache")" ]; then
    generator=Ninja
    command -v ninja >/dev/null || generator='Unix Makefiles'
    [ ! -e "$cache" ] || generator=$(sed -n 's/^CMAKE_GENERATOR:INTERNAL=//p' "$cache")
    quietly cmake --preset "$preset" -G "$generator"
    touch "$cache"
fi
quietly cmake --build "build/$preset" -j "$(nproc)" ${1:+--target "$@"}
