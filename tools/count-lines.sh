#!/bin/bash
# usage: tools/count-lines.sh
#
# Counts the lines of C++ that say something: not those that are empty, or comments, or braces alone. Tells how many of
# all are tests: a third at most is wanted.
set -eu
cd "$(dirname "$0")/.."
tools/sources.sh | xargs -d '\n' awk '
    { sub(/\/\/.*/, "") }
    /[[:alnum:]]/ { lines[substr(FILENAME, 1, index(FILENAME, "/") - 1)]++ }
    END {
        all = lines["src"] + lines["tests"] + lines["bench"]
        printf "%d lines in src, %d in tests, %d in bench: %.1f %% are tests\n",
            lines["src"], lines["tests"], lines["bench"], 100 * lines["tests"] / all
    }'
