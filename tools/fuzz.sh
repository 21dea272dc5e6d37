#!/bin/bash
# usage: tools/fuzz.sh [INPUTS]
#
# Runs every reader of bytes that others wrote on INPUTS (1,000,000) inputs that libFuzzer makes up, under sanitizers:
# of zone backups, of registry exports (as a restore, and as a registry of its own), and those of icon files, icon groups,
# icon images, bitmaps, string tables and resource directories, which take turns. What it has learnt stays in build/fuzz
# for the next run; an input that breaks something is left there.
set -eu
cd "$(dirname "$0")/.."
inputs=${1:-1000000}

# usage: fuzz NAME DICTIONARY SEEDS SOURCE...
fuzz() {
    local name=$1 dictionary=$2 seeds=$3 program=build/fuzz/$1 log=build/fuzz/$1.log run
    shift 3
    mkdir -p "build/fuzz/$name-corpus"
    clang++ -std=c++20 -O1 -g -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=all -D_GLIBCXX_ASSERTIONS \
        -DTAVIMOR_VERSION='""' -Isrc "$@" -o "$program"
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

fuzz zone-file tvf.dict seeds tests/fuzz/ZoneFileFuzz.cpp src/backup/ZoneFile.cpp \
    src/util/characters.cpp src/util/clsStrings.cpp
fuzz export reg.dict exports tests/fuzz/ExportFuzz.cpp src/command/ExportedRegistry.cpp src/native/Console.cpp \
    src/backup/{RegistryExport,ZonesExport}.cpp src/simulated/{Registry,Watch}.cpp src/registry/*.cpp src/util/*.cpp
fuzz stored-bytes stored.dict stored tests/fuzz/StoredBytesFuzz.cpp src/platform/*.cpp src/simulated/*.cpp src/ui/*.cpp \
    src/util/*.cpp src/icons/{Bitmaps,FileKind,ModuleFile,cMemory,clsFileIcon}.cpp
