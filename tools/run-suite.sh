#!/bin/bash
# usage: tools/run-suite.sh [tools/run-on-wine.sh] TEST_PROGRAM [--gtest_...]
#
# Runs a test program and believes neither its exit code nor its silence: as many tests must have run as it lists, and
# none may have failed. Prints what failed, or all with VERBOSE=1, and closes with "N passed, N failed, N skipped".
set -u
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1}
output=$(mktemp)
listing=$(mktemp)
trap 'rm -f "$output" "$listing"' EXIT

"$@" --gtest_list_tests >"$listing" 2>&1
# Suites stand at the margin, their tests below them, indented.
listed=$(awk '/^[^ ]/ {off = /DISABLED_/} /^  [^ ]/ && !off && !/^  DISABLED_/ {n++} END {print n + 0}' "$listing")
"$@" --gtest_color=no >"$output" 2>&1
code=$?

count() { sed -n "s/^\[ *$1 *\] \([0-9]*\) test.*/\1/p" "$output" | head -n 1; }
ran=$(sed -n 's/^\[==========\] \([0-9]*\) tests\{0,1\} from .* ran\..*/\1/p' "$output")
failed=$(count FAILED) skipped=$(count SKIPPED) passed=$(count PASSED)
: "${ran:=0}" "${failed:=0}" "${skipped:=0}" "${passed:=0}"

problem=
[ "$listed" -gt 0 ] || problem="it lists no tests: $(tail -n 5 "$listing")"
[ "$ran" = "$listed" ] || problem="${problem:-$ran of $listed listed tests ran}"
[ $code = 0 ] || problem="${problem:-exit code $code}"
if [ -n "$problem" ] || [ "${VERBOSE:-0}" = 1 ]; then
    grep -v '^\[ *\(OK\|RUN\|-*\) *\]' "$output"
fi
if [ -n "$problem" ]; then
    echo "$*: $problem"
    # A test that never came to its end is the last one begun.
    [ "$ran" -gt 0 ] || echo "last begun: $(grep '^\[ RUN' "$output" | tail -n 1)"
    [ "$failed" -gt 0 ] || failed=1
fi
echo "$passed passed, $failed failed, $skipped skipped"
[ -z "$problem" ]
