#!/bin/bash
# usage: tools/release.sh
#
# Leaves in dist/ what people get: Tavimor.exe and TavimorCmd.exe, the set-up program and the zip that have them in them,
# and their sums. The same sources give the same bytes, in any folder and at any time.
set -eu
cd "$(dirname "$0")/.."
tools/build.sh win32 Tavimor TavimorCmd
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
setup=tavimor-$version-setup.exe zip=tavimor-$version.zip
# What is packed is of one time, not of the day it was built; 2026 begins.
export SOURCE_DATE_EPOCH=1767225600 TZ=UTC

# What has not changed is left alone, with its time.
mkdir -p dist
for exe in Tavimor.exe TavimorCmd.exe; do
    cmp -s build/win32/$exe dist/$exe || cp build/win32/$exe dist/$exe
done

# Old editors want both characters at a line's end.
files=build/packages/tavimor-$version
rm -rf build/packages
mkdir -p "$files"
cp dist/Tavimor.exe dist/TavimorCmd.exe "$files"
sed "s/VERSION/$version/g; s/\$/\r/" packaging/README.txt >"$files/README.txt"
sed 's/$/\r/' LICENSE >"$files/LICENSE.txt"
sed 's/$/\r/' packaging/wine-ie5.reg >"$files/wine-ie5.reg"
chmod 644 "$files"/*
touch -d "@$SOURCE_DATE_EPOCH" "$files"/*

makensis -V2 -WX -NOCD -DVERSION="$version" -DFILES="$files" -DICON=sandbox/art/Tavimor.ico \
    -DRESULT="$PWD/build/packages/$setup" packaging/setup.nsi
(cd build/packages && zip -X -9 -D -q "$zip" "tavimor-$version"/{Tavimor.exe,TavimorCmd.exe,README.txt,LICENSE.txt,wine-ie5.reg})

cd dist
rm -f tavimor-* SHA256SUMS
cp "../build/packages/$setup" "../build/packages/$zip" .
sha256sum Tavimor.exe TavimorCmd.exe "$setup" "$zip" >SHA256SUMS
