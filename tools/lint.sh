#!/bin/bash
# usage: tools/lint.sh [FILE...]
#
# Holds the sources (all that build natively, or those named) against .clang-format and .clang-tidy.
set -u
cd "$(dirname "$0")/.."
bad=0

mapfile -t formatted < <(git ls-files 'src/*.h' 'src/*.cpp' 'tests/*.h' 'tests/*.cpp' 'bench/*.cpp')
clang-format --dry-run -Werror "${formatted[@]}" || bad=1

# clang knows nothing of a precompiled header that GCC has made, and less of the Windows headers of the cross compiler.
cmake --preset native -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON -B build/lint >build/lint.log 2>&1 ||
    { cat build/lint.log; exit 1; }
if [ $# -gt 0 ]; then
    checked=("$@")
else
    mapfile -t checked < <(git ls-files 'src/*.cpp' ':!src/win32' ':!src/main.cpp')
fi
printf '%s\n' "${checked[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy --quiet --extra-arg=-Wno-unknown-warning-option -p build/lint 2>/dev/null || bad=1
[ $bad = 0 ] && echo "${#formatted[@]} sources are in their format, ${#checked[@]} without findings"
exit $bad
