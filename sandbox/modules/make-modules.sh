#!/bin/sh
# make-modules.sh FOLDER: makes the modules of the browser that hold pictures and texts, for machines that lack them.
# They hold nothing else, so programs of 32 and of 64 bits can read them. Equal sources give equal files.
set -eu
mkdir -p "$1"
out=$(cd "$1" && pwd)
cd "$(dirname "$0")"
for module in explorer.exe inetcpl.cpl inetcplc.dll; do
    object=$out/${module%.*}.o
    x86_64-w64-mingw32-windres -I ../art "${module%.*}.rc" "$object"
    (cd "$out" && x86_64-w64-mingw32-ld -shared -s -e 0 --no-insert-timestamp -o "$module" "${module%.*}.o")
    rm "$object"
done
