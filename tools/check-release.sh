#!/bin/bash
# usage: tools/check-release.sh
#
# Holds dist/Tavimor.exe against what it promises, and closes with "N passed, N failed".
set -u
cd "$(dirname "$0")/.."
exe=dist/Tavimor.exe
passed=0 failed=0
output=$(mktemp)
trap 'rm -f "$output"' EXIT
check() {
    local what=$1
    shift
    if "$@" >"$output" 2>&1; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "not so: $what"
        cat "$output"
    fi
}

# The same sources in another folder, where the compiler sees other paths. Its objects are kept: only what has changed
# since is compiled once more.
reproducible() {
    local copy=build/elsewhere/a-longer-path-to-the-same-sources
    mkdir -p $copy
    (cd $copy && rm -rf src cmake sandbox tests bench tools CMake*)
    cp -a src cmake sandbox tests bench tools CMakeLists.txt CMakePresets.json $copy/
    $copy/tools/build.sh win32 Tavimor && cmp "$exe" $copy/build/win32/Tavimor.exe
}

# A checker that passes everything would be no checker: the 64-bit program needs functions that old Windows lacks.
checker_refuses() { ! tools/check-imports.sh build/win64/Tavimor.exe; }

small_enough() { ls -l "$exe" && [ "$(stat -c %s "$exe")" -le $((400 * 1024)) ]; }

check "it has at most 400 KB" small_enough
check "it asks for nothing that Windows 95 lacks" tools/check-imports.sh --95 "$exe"
check "the check of its imports refuses the 64-bit program" checker_refuses
check "a build of the same sources in another folder gives the same bytes" reproducible
echo "$passed passed, $failed failed"
[ $failed = 0 ]
