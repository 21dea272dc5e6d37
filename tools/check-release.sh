#!/bin/bash
# usage: tools/check-release.sh
#
# Holds what is in dist/ against what it promises, and closes with "N passed, N failed".
set -u
cd "$(dirname "$0")/.."
exe=dist/Tavimor.exe cmd=dist/TavimorCmd.exe
. tools/checks.sh

# The same sources in another folder, where the compiler sees other paths. Its objects are kept: only what has changed
# since is compiled once more.
reproducible() {
    local copy=build/elsewhere/a-longer-path-to-the-same-sources
    mkdir -p $copy
    (cd $copy && rm -rf src cmake sandbox tests bench tools packaging CMake* dist)
    cp -a src cmake sandbox tests bench tools packaging CMakeLists.txt CMakePresets.json LICENSE $copy/
    $copy/tools/release.sh && diff -r dist $copy/dist
}

# A checker that passes everything would be no checker: the 64-bit program needs functions that old Windows lacks.
checker_refuses() { ! tools/check-imports.sh build/win64/Tavimor.exe; }

most_kilobytes=420 most_kilobytes_cmd=350
# usage: small_enough PROGRAM KILOBYTES
small_enough() { ls -l "$1" && [ "$(stat -c %s "$1")" -le $(($2 * 1024)) ]; }

check "it has at most $most_kilobytes KB" small_enough "$exe" $most_kilobytes
check "the program without windows has at most $most_kilobytes_cmd KB" small_enough "$cmd" $most_kilobytes_cmd
check "it asks for nothing that Windows 95 lacks" tools/check-imports.sh --95 "$exe"
check "nor does the program without windows" tools/check-imports.sh --95 "$cmd"
check "the check of its imports refuses the 64-bit program" checker_refuses
check "a build of the same sources in another folder gives the same bytes" reproducible
closing_line
