#!/bin/bash
# usage: tools/tidy-one.sh FOLDER [ARGUMENT...] FILE
#
# clang-tidy on one source as it is compiled in FOLDER; says that it has begun. Called by tools/lint.sh.
set -u
folder=$1 file=${!#}
echo "$file"
# It counts, without a word of ours to say, the warnings of others' headers.
clang-tidy --quiet --extra-arg=-Wno-unknown-warning-option -p "$folder" "${@:2}" 2>/dev/null
