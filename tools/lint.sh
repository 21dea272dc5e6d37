#!/bin/bash
# usage: tools/lint.sh [FILE...]
#
# Holds the sources (all, or those named) against .clang-format and .clang-tidy, those below src/win32 with the headers of
# the cross compiler.
set -u
cd "$(dirname "$0")/.."
for tool in clang-format clang-tidy cmake x86_64-w64-mingw32-g++-posix; do
    command -v $tool >/dev/null || { echo "$tool is missing: make setup"; exit 1; }
done
bad=0
mapfile -t formatted < <(tools/sources.sh)
[ $# = 0 ] || formatted=("$@")
clang-format --dry-run -Werror "${formatted[@]}" || bad=1

# usage: tidy PRESET [ARGUMENT...] <FILES    clang knows nothing of a precompiled header that GCC has made
tidy() {
    local folder=build/lint/$1
    mkdir -p "$folder"
    cmake --preset "$1" -G 'Unix Makefiles' -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON -B "$folder" \
        >"$folder.log" 2>&1 || { cat "$folder.log"; return 1; }
    shift
    xargs -d '\n' -r -P "$(nproc)" -n 1 tools/tidy-one.sh "$folder" "$@"
}
# Where the cross compiler looks for headers, but for those that are about itself: clang has its own.
cross_headers() {
    x86_64-w64-mingw32-g++-posix -E -v -x c++ /dev/null 2>&1 |
        sed -n '/^#include </,/^End/{ /backward/d; /\/c++\|\/\.\.\//s/^ /--extra-arg=-isystem/p }'
}

mapfile -t headers < <(cross_headers)
of_windows='^src/win32/[^/]*$\|^src/main\(Cmd\)\?\.cpp$'
list() { printf '%s\n' "${formatted[@]}" | grep '^src/.*\.cpp$' | grep -v '^src/win32/oldest/'; }
list | grep -v "$of_windows" | tidy native || bad=1
list | grep "$of_windows" |
    tidy win64 --extra-arg=--target=x86_64-w64-mingw32 --extra-arg=-nostdlibinc "${headers[@]}" || bad=1
[ $bad = 0 ] && echo "${#formatted[@]} sources are in their format and without findings"
exit $bad
