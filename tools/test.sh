#!/bin/bash
# usage: tools/test.sh
#
# Builds and runs everything there is to test: natively under sanitizers, the same sources as Windows programs of 64 and
# of 32 bits on Wine, the latter from the released program's very objects; then the released program's promises, its
# packages, and the program itself from outside. Closes with the sum, "N passed, N failed, N skipped".
set -u
cd "$(dirname "$0")/.."
passed=0 failed=0 skipped=0
output=$(mktemp)
trap 'rm -f "$output"' EXIT

# Runs a step, and adds up what its last line counts. A step that says nothing of the kind has failed as one test.
step() {
    local title=$1 start=$SECONDS code last
    shift
    "$@" >"$output" 2>&1
    code=$?
    last=$(tail -n 1 "$output")
    if [[ $last =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed(,\ ([0-9]+)\ skipped)?$ ]]; then
        passed=$((passed + BASH_REMATCH[1])) failed=$((failed + BASH_REMATCH[2])) skipped=$((skipped + ${BASH_REMATCH[4]:-0}))
        [ $code = 0 ] || [ "${BASH_REMATCH[2]}" -gt 0 ] || failed=$((failed + 1))
        sed '$d' "$output"
        echo "== $title: $last ($((SECONDS - start)) s)"
    else
        cat "$output"
        failed=$((failed + 1))
        echo "== $title: failed ($((SECONDS - start)) s)"
    fi
}
native() { tools/build.sh native && tools/run-suite.sh build/native/tests/tavimor-tests; }
on_wine() {
    local -x WINE_BITS=$1
    local code
    tools/build.sh win$1 && tools/run-suite.sh tools/run-on-wine.sh build/win$1/tests/tavimor-tests.exe
    code=$?
    tools/run-on-wine.sh --end
    return $code
}
release() { tools/release.sh && tools/check-release.sh; }

step "native, under sanitizers" native
step "Windows on Wine" on_wine 64
step "Windows of 32 bits on Wine" on_wine 32
step "the released program" release
step "the packages" tools/check-packages.sh
for version in win98 nt40 win2k; do
    step "the released program on $version" tools/smoke.sh $version
done
echo "$passed passed, $failed failed, $skipped skipped"
[ $failed = 0 ]
