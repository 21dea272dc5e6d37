#!/bin/bash
# usage: tools/test.sh [PRESET]
#
# Builds what the tests of a test preset need (`tests`: all but lint; see CMakePresets.json), and has CTest run them.
# Closes with the sum of what the groups of tests have counted, "N passed, N failed, N skipped".
set -u
cd "$(dirname "$0")/.."
preset=${1:-tests}

tools/count-lines.sh
start=$SECONDS
tools/build.sh native || exit 1
if [ "$preset" != native ]; then
    tools/build.sh win64 && tools/build.sh win32 && tools/release.sh || exit 1
fi
echo "built in $((SECONDS - start)) s"
ctest --preset "$preset" -j "$(nproc)"
code=$?

# A group that has not counted is one test, and one that failed for another reason than its tests is one more.
awk -v code=$code '
    /^[0-9]+ passed, [0-9]+ failed/ { counted = 1; passed += $1; failed += $3; skipped += $5; bad = $3 > 0 }
    /^Test Passed/ { well = 1 }
    /^".*" end time:/ {
        if (well) passed += !counted
        else if (!bad) failed++
        counted = bad = well = 0
    }
    END {
        if (code != 0 && !failed) failed = 1
        printf "%d passed, %d failed, %d skipped\n", passed, failed, skipped
    }' build/native/Testing/Temporary/LastTest.log
exit $code
