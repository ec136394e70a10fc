#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Feeds each reader of what others wrote with inputs that libFuzzer makes up, and tells how far it came.
# Usage: scripts/fuzz.sh [--plain] SECONDS [READER...]        each reader, or these, for so long
#        scripts/fuzz.sh [--plain] --runs COUNT [READER...]   until so many inputs have been tried
#                                                      (how often a branch is taken is not counted then: twice as fast)
# --plain: optimised and without the sanitizers, so that more inputs a second show what does not hold.
# What is found is kept in build/fuzz/found (--plain: build/fuzz-plain/found); then this ends with 1.
# ORV_CORPUS=FOLDER keeps the inputs for the next time.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

usage() {
    sed -n '3,9s/^# //p' "$0" >&2
    exit 2
}
preset=fuzz
[ "${1:-}" = --plain ] && { preset=fuzz-plain; shift; }
case "${1:-}" in
    --runs) [[ "${2:-}" =~ ^[0-9]+$ ]] || usage; limit=(-runs="$2" -use_counters=0); shift 2 ;;
    *) [[ "${1:-}" =~ ^[0-9]+$ ]] || usage; limit=(-max_total_time="$1"); shift ;;
esac
readers=("$@")
if [ ${#readers[@]} -eq 0 ]; then
    for folder in src/fuzzing/seeds/*/; do
        readers+=("$(basename "$folder")")
    done
fi

targets=()
for reader in "${readers[@]}"; do
    [ -d "src/fuzzing/seeds/$reader" ] || usage
    targets+=("fuzz_$reader")
done
build=build/$preset
mkdir -p "$build/found"
if ! { cmake --preset "$preset" && cmake --build "$build" --target "${targets[@]}"; } >"$build/build.log" 2>&1; then
    tail -n 40 "$build/build.log" >&2
    exit 1
fi

# The readers' files are in memory.
work=$(mktemp -d -p "$([ -w /dev/shm ] && echo /dev/shm || echo "${TMPDIR:-/tmp}")")
trap 'rm -rf "$work"' EXIT
mkdir "$work/files"
export TMPDIR="$work/files"
export ASAN_OPTIONS=quarantine_size_mb=1:malloc_context_size=0 QT_QPA_PLATFORM=offscreen
found=$build/found

failed=0
printf '%-18s %12s %10s %14s  %s\n' reader executions "a second" "coverage" found
for reader in "${readers[@]}"; do
    case "$reader" in
        lines | recordfile | sheetfile | tables) longest=400 ;;
        *) longest=160 ;;
    esac
    corpus="${ORV_CORPUS:-$work/corpus}/$reader"
    mkdir -p "$corpus"
    inputs=("$corpus" "src/fuzzing/seeds/$reader")
    [ -d "src/fuzzing/found/$reader" ] && inputs+=("src/fuzzing/found/$reader")
    log="$work/$reader.log"
    # The weighing of rare inputs (entropic) would take up to half of the time.
    "$build/bin/fuzz_$reader" "${limit[@]}" -entropic=0 -max_len=$longest -timeout=20 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="$found/$reader-" "${inputs[@]}" >"$log" 2>&1
    result=$?
    executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
    edges=$(sed -n 's/.* cov: \([0-9]*\) .*/\1/p' "$log" | tail -1)
    all=$(sed -n 's/.*Loaded 1 modules *(\([0-9]*\) inline.*/\1/p' "$log")
    what=nothing
    if [ $result -ne 0 ]; then
        failed=1
        what=$(sed -n 's/.*Does not hold: *//p; s/.*runtime error: *//p; s/.*ERROR: \(AddressSanitizer.*\)/\1/p; s/.*ERROR: \(libFuzzer: timeout.*\)/\1/p' "$log" | head -1)
        [ -n "$what" ] || what=$(tail -3 "$log")
    fi
    printf '%-18s %12s %10s %14s  %s\n' "$reader" "${executions:-?}" "${rate:-?}" "${edges:-?} of ${all:-?}" "$what"
done
[ $failed -eq 0 ] || echo "What was found is in $found. Mend it, and keep the input in src/fuzzing/found/READER."
exit $failed
