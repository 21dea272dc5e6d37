#!/bin/bash
# usage: tools/release.sh    leaves dist/Tavimor.exe, the program people get
set -eu
cd "$(dirname "$0")/.."
tools/build.sh win32 Tavimor
mkdir -p dist
cmp -s build/win32/Tavimor.exe dist/Tavimor.exe || cp build/win32/Tavimor.exe dist/Tavimor.exe
