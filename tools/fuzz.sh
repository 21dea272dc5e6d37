#!/bin/bash
# usage: tools/fuzz.sh [INPUTS]
#
# Runs the readers of zone backups on INPUTS (1,000,000) inputs that libFuzzer makes up, under sanitizers. What it has
# learnt stays in build/fuzz/corpus for the next run; an input that breaks something is left in build/fuzz.
set -eu
cd "$(dirname "$0")/.."
inputs=${1:-1000000}
program=build/fuzz/zone-file-fuzz
mkdir -p build/fuzz/corpus

clang++ -std=c++20 -O1 -g -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=all -D_GLIBCXX_ASSERTIONS -Isrc \
    tests/fuzz/ZoneFileFuzz.cpp src/backup/ZoneFileReading.cpp src/util/clsStrings.cpp -o "$program"

log=build/fuzz/run.log
if ! "$program" -runs="$inputs" -max_len=2048 -timeout=10 -dict=tests/fuzz/tvf.dict -artifact_prefix=build/fuzz/ \
    -print_final_stats=1 build/fuzz/corpus tests/fuzz/seeds >"$log" 2>&1; then
    tail -n 40 "$log"
    echo "a finding: the input is in build/fuzz"
    exit 1
fi
run=$(sed -n 's/^stat::number_of_executed_units: //p' "$log")
[ "${run:-0}" -ge "$inputs" ] || { tail -n 20 "$log"; echo "only ${run:-0} inputs were run"; exit 1; }
echo "$run inputs without a finding"
