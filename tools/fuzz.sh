#!/bin/bash
# usage: tools/fuzz.sh [INPUTS]
#
# Runs the readers of zone backups and of registry exports, and what makes a registry of an export, on INPUTS (1,000,000) inputs each that libFuzzer makes up,
# under sanitizers. What it has learnt stays in build/fuzz for the next run; an input that breaks something is left there.
set -eu
cd "$(dirname "$0")/.."
inputs=${1:-1000000}

# usage: fuzz NAME DICTIONARY SEEDS SOURCE...
fuzz() {
    local name=$1 dictionary=$2 seeds=$3 program=build/fuzz/$1 log=build/fuzz/$1.log run
    shift 3
    mkdir -p "build/fuzz/$name-corpus"
    clang++ -std=c++20 -O1 -g -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=all -D_GLIBCXX_ASSERTIONS \
        -Isrc "$@" -o "$program"
    if ! "$program" -runs="$inputs" -max_len=2048 -timeout=10 -dict="tests/fuzz/$dictionary" \
        -artifact_prefix=build/fuzz/ -print_final_stats=1 "build/fuzz/$name-corpus" "tests/fuzz/$seeds" >"$log" 2>&1; then
        tail -n 40 "$log"
        echo "$name: a finding: the input is in build/fuzz"
        exit 1
    fi
    run=$(sed -n 's/^stat::number_of_executed_units: //p' "$log")
    [ "${run:-0}" -ge "$inputs" ] || { tail -n 20 "$log"; echo "$name: only ${run:-0} inputs were run"; exit 1; }
    echo "$name: $run inputs without a finding"
}

fuzz zone-file tvf.dict seeds tests/fuzz/ZoneFileFuzz.cpp src/backup/ZoneFile.cpp src/util/clsStrings.cpp
fuzz registry-export reg.dict exports tests/fuzz/RegistryExportFuzz.cpp src/backup/RegistryExport.cpp \
    src/backup/ZonesExport.cpp src/util/characters.cpp
fuzz exported-registry reg.dict exports tests/fuzz/ExportedRegistryFuzz.cpp src/command/ExportedRegistry.cpp \
    src/native/Console.cpp src/backup/RegistryExport.cpp src/simulated/Registry.cpp src/simulated/Watch.cpp \
    src/registry/*.cpp src/util/*.cpp
