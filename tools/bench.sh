#!/bin/bash
# usage: tools/bench.sh
#
# Measures backups on Wine, beside the registry editor.
set -eu
cd "$(dirname "$0")/.."
tools/build.sh win64 tavimor-bench
code=0
tools/run-on-wine.sh build/win64/tavimor-bench.exe || code=$?
tools/run-on-wine.sh --end
exit $code
