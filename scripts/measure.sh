#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Measures speed and memory and compares them with their limits; see docs/PERFORMANCE.md. Takes about a quarter
# of an hour, and wants the computer for itself.
# Usage: scripts/measure.sh [--quick]      --quick: fewer and shorter measurements, about four minutes
# Builds into build/benchmarks, or into the folder ORV_BENCHMARK_BUILD. Exit status 1 if a limit is missed.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${ORV_BENCHMARK_BUILD:-$root/build/benchmarks}

starts=21 runs=3 seconds=15 records=600 repetitions=5
if [ "${1:-}" = --quick ]; then
    starts=5 runs=1 seconds=10 records=200 repetitions=1
fi

"$root/scripts/install.sh" run
needed=()
for package in libbenchmark-dev libxcb1-dev xvfb; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)" = installed ] || needed+=("$package")
done
if [ ${#needed[@]} -ne 0 ]; then
    echo "Please install: ${needed[*]}" >&2
    exit 1
fi
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DORV_BUILD_BENCHMARKS=ON -DORV_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" --target orvhost orvsim orvbenchmarks barewindow programload windowstart
bin=$build/bin

work=$(mktemp -d)
own_processes=()
finish() {
    [ ${#own_processes[@]} -eq 0 ] || kill "${own_processes[@]}" 2>/dev/null || true
    rm -rf "$work"
}
trap finish EXIT
cd "$work"

# The programs write their log and record files into the current folder; Qt's chatter would drown the figures.
export QT_LOGGING_RULES='*=false' XDG_RUNTIME_DIR=$work XDG_CONFIG_HOME=$work
chmod 700 "$work"
# A display of its own, without window manager, so that windows are mapped when the program asks for it.
Xvfb -displayfd 3 -noreset -screen 0 1280x1024x24 -nolisten tcp 3>display >/dev/null 2>&1 &
own_processes+=($!)
for _ in {1..100}; do
    [ -s display ] && break
    sleep 0.1
done
DISPLAY=:$(cat display)
export DISPLAY QT_QPA_PLATFORM=xcb

median() { sort -g | awk '{ value[NR] = $1 } END { print value[int((NR + 1) / 2)] }'; }
field() { awk -v name="$1" '$1 == name { print $2 }'; }

missed=0
# report WHAT FIGURE UNIT [LIMIT]
report() {
    local verdict=""
    if [ -z "$2" ]; then
        printf '%-66s %s\n' "$1" "could not be measured   MISSED"
        missed=1
        return
    fi
    if [ $# -gt 3 ]; then
        verdict="limit $4"
        if awk -v figure="$2" -v limit="$4" 'BEGIN { exit !(figure > limit) }'; then
            verdict+="   MISSED"
            missed=1
        fi
    fi
    printf '%-66s %9.3f %-9s %s\n' "$1" "$2" "$3" "$verdict"
}

# An instrument in a process of its own, so that its processor time is not the program's; its path is in $line.
line=$work/line
instrument=
serve() {
    "$bin/orvsim" --link "$line" "$1" >/dev/null &
    instrument=$!
    own_processes+=("$instrument")
    for _ in {1..100}; do
        [ -e "$line" ] && break
        sleep 0.1
    done
}
retire() {
    kill "$instrument"
    wait "$instrument" || true
    rm -f "$line"
}

# load STATE DEVICE: some runs; of NAME: the median of a figure of theirs; measured STATE NAME DEVICE: both
load() {
    : >loaded
    for ((run = 0; run < runs; ++run)); do
        "$bin/programload" "$1" "$2" "$seconds" >>loaded || true
    done
}
of() { field "$1" <loaded | median; }
measured() {
    load "$1" "$3"
    of "$2"
}

echo
echo "Load average before: $(cut -d' ' -f1-3 /proc/loadavg), $(nproc) processors"
echo
echo "Start (medians of $starts alternating starts, after one that is not counted)"
"$bin/windowstart" "$bin/barewindow" >/dev/null
"$bin/windowstart" "$bin/orvhost" --com1 sim:trx >/dev/null
for ((run = 0; run < starts; ++run)); do
    "$bin/windowstart" "$bin/barewindow" >>bare
    "$bin/windowstart" "$bin/orvhost" --com1 sim:trx >>host
done
bare=$(median <bare)
host=$(median <host)
report "bare window: start to mapped window" "$bare" ms
report "orvhost: start to mapped window" "$host" ms
report "ratio" "$(awk "BEGIN { print $host / $bare }")" "" 1.5
report "bare window: in memory" "$(awk '{ print $2 }' bare | median)" MB
report "orvhost: in memory" "$(awk '{ print $2 }' host | median)" MB

echo
echo "Share of a core (medians of $runs runs of $seconds s)"
serve sim:trx
load idle "$line"
report "connected, idle" "$(of share_percent)" % 0.1
report "the same, wake-ups" "$(of wakeups_per_second)" /s 2
load wait-prompt "$line"
report "settings sent to a silent instrument" "$(of share_percent)" % 0.1
report "the same, wake-ups" "$(of wakeups_per_second)" /s
load wait-shutter "$line"
report "while the shutter moves" "$(of share_percent)" % 0.1
report "the same, wake-ups" "$(of wakeups_per_second)" /s
retire
serve "sim:trx?rate=27&baud=0"
report "run, 27 rows/s, 19000 rows, sheet shown" "$(measured run-sheet share_percent "$line")" % 2.3
report "run, 27 rows/s, 19000 rows, status shown" "$(measured run-status share_percent "$line")" % 0.6
for axis in record time; do
    for arrangement in together stacked change; do
        report "the same, graphical page shown, $axis, $arrangement, followed" \
            "$(measured "run-graph-$axis-$arrangement" share_percent "$line")" % 3
    done
done
report "the same, graphical page shown, all rows" "$(measured run-graph-all share_percent "$line")" % 8
retire
for kind in "sim:glow?" "sim:trx?firmware=412&"; do
    serve "${kind}rate=27&baud=0"
    report "${kind%[?&]}: graphical page shown, followed" "$(measured run-graph share_percent "$line")" % 8
    report "${kind%[?&]}: graphical page shown, all rows" "$(measured run-graph-all share_percent "$line")" % 8
    retire
done
# The same with the characters one by one, as no port delivers them: each wakes the program.
serve "sim:trx?rate=27&baud=10800"
report "the same, sheet shown, characters one by one" "$(measured run-sheet share_percent "$line")" % 3
report "the same, status shown, characters one by one" "$(measured run-status share_percent "$line")" %
retire
report "the same, sheet shown, simulated instrument inside the program" \
    "$(measured run-sheet share_percent "sim:trx?rate=27&baud=0")" % 5
report "the same, status shown, simulated instrument inside the program" \
    "$(measured run-status share_percent "sim:trx?rate=27&baud=0")" % 1.5

echo
echo "From a line's LF to its row (medians of $runs runs of $seconds s; 27 rows/s, 19000 rows, sheet shown)"
load delay "sim:trx?rate=27&baud=0"
report "half of the lines within" "$(of delay_p50_ms)" ms
report "99 of 100 lines within" "$(of delay_p99_ms)" ms 10

echo
echo "Download of $records records at 9600 baud, time over bytes / 960 s"
serve "sim:trx?records=$records"
report "to a text file" "$("$bin/programload" download-file "$line" | field over_line)" "" 1.02
report "to the sheet" "$("$bin/programload" download-sheet "$line" | field over_line)" "" 1.02
retire

echo
echo "The sheet (medians of $repetitions repetitions)"
"$bin/orvbenchmarks" --benchmark_repetitions="$repetitions" --benchmark_format=json >figures.json 2>/dev/null
# figure NAME FIELD: the median of a benchmark's repetitions
figure() {
    awk -F'[:,]' -v wanted="$1" -v field="\"$2\"" '
        { gsub(/^ +/, "", $1) }
        $1 == "\"name\"" { name = $2; gsub(/[" ]/, "", name); single = 0 }
        $1 == "\"run_type\"" { single = $2 ~ /iteration/ }
        $1 == field && single && (name == wanted || index(name, wanted "/") == 1) { print $2 }
    ' figures.json | median
}
report "20000 rows over an empty sheet, whole program, sheet shown" \
    "$("$bin/programload" memory none | field full_sheet_MB)" MB 18
report "20000 rows over an empty sheet, the rows alone" "$(figure fullSheetMemory allocated_MB)" MB 18
first=$(figure appendRow/0 cpu_time)
last=$(figure appendRow/19500 cpu_time)
report "appending a row from row 1 on" "$first" ns
report "appending a row up to row 19999" "$last" ns
report "ratio" "$(awk "BEGIN { print $last / $first }")" "" 1.25
first=$(figure dataLineTick/0 cpu_time)
last=$(figure dataLineTick/19500 cpu_time)
report "a tick that makes a row (sheet, record file, log), from row 1 on" "$first" us
report "the same up to row 19900" "$last" us
report "ratio" "$(awk "BEGIN { print $last / $first }")" "" 1.25
report "a tick with nothing to do" "$(figure idleTick cpu_time)" us
report "reading a cell" "$(figure readCell cpu_time)" ns
report "automatic save of 20000 rows" "$(figure automaticSave real_time)" ms 40
report "loading 20000 rows" "$(figure loadFullSheet real_time)" ms 60
report "converting 20000 rows to CSV" "$(figure convertToCsv real_time)" ms 40
report "converting 20000 rows to NetCDF" "$(figure convertToNetCdf real_time)" ms 150
echo
echo "Load average after: $(cut -d' ' -f1-3 /proc/loadavg)"
if [ "$missed" -ne 0 ]; then
    echo "A limit is missed."
fi
exit "$missed"
