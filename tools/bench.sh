#!/bin/bash
# usage: tools/bench.sh [--write]
#
# Measures natively what does not depend on a system, and the rest on Wine beside a bare program or the registry editor.
# Ends with a table of every measure, with --write also in docs/performance.md, and fails when a limit is missed.
set -eu
cd "$(dirname "$0")/.."
tools/build.sh native-release tavimor-bench
tools/build.sh win64-release tavimor-bench

output=$(mktemp)
table=$(mktemp)
trap 'rm -f "$output" "$table"' EXIT
measure() {
    "$@" >"$output" 2>&1 || { cat "$output"; echo "$*: no measures"; exit 1; }
    grep -v '^|' "$output"
    grep '^|' "$output" >>"$table"
}

{
    echo '| Measure | Value | Limit | Met |'
    echo '|---|---|---|---|'
} >"$table"
measure build/native-release/tavimor-bench --benchmark_enable_random_interleaving=true
measure tools/run-on-wine.sh build/win64-release/tavimor-bench.exe
measure build/native-release/tavimor-bench-exports build/native-release/tavimorcmd \
    tools/run-on-wine.sh build/win64-release/tavimor-bench.exe import
tools/run-on-wine.sh --end

echo
cat "$table"
if [ "${1:-}" = --write ]; then
    begin='<!-- measured by make bench -->' end='<!-- end of what make bench measured -->'
    if ! grep -qxF "$begin" docs/performance.md || ! grep -qxF "$end" docs/performance.md; then
        echo "docs/performance.md has no place for the table"
        exit 1
    fi
    awk -v begin="$begin" -v end="$end" -v table="$table" '
        $0 == end { inside = 0 }
        !inside
        $0 == begin { inside = 1; while ((getline row < table) > 0) print row }
    ' docs/performance.md >"$output"
    cat "$output" >docs/performance.md
fi
if grep -q '| NO |$' "$table"; then
    echo "a limit is missed"
    exit 1
fi
