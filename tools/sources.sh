#!/bin/bash
# usage: tools/sources.sh
#
# Lists our C++ sources, those that git does not know yet among them.
set -eu
cd "$(dirname "$0")/.."
git ls-files --cached --others --exclude-standard -- {src,tests,bench}'/*.h' {src,tests,bench}'/*.cpp' | sort -u |
    while IFS= read -r file; do
        [ ! -e "$file" ] || echo "$file" # deleted, and git not told yet
    done
