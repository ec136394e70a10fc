#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the tables of docs/RELIABILITY.md anew: the tests print their lines.
#   scripts/reliability.sh [BUILD]     with a build of the tests, build/dev by default
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=${1:-build/dev}
export QT_QPA_PLATFORM=offscreen ORV_TABLES=1

# put NAME: the lines between the two marks of that name become those of the standard input.
put() {
    local lines
    lines=$(grep '^| ')
    NAME=$1 LINES_TO_PUT=$lines perl -0pi -e \
        's/(<!-- begin $ENV{NAME} -->\n.*?\| ---[^\n]*\n).*?(<!-- end $ENV{NAME} -->)/$1$ENV{LINES_TO_PUT}\n$2/s' docs/RELIABILITY.md
}

failing() {
    "$build/bin/orv_reliability_tests" --gtest_filter="Sessions/FailingCalls.LoseNothing/$1"
}

failing '*' | grep -E '^\| (Day|Long)' | put sessions
failing 'DayFail:*LongFail' | grep '^| ' | grep -vE '^\| (Day|Long)' |
    awk -F ' [|] ' '{ times[$1 " | " $2] += $3 } END { for (line in times) print line " | " times[line] " |" }' | sort | put calls
ORV_MATRIX_RANDOM=${ORV_MATRIX_RANDOM:-20} "$build/bin/orv_matrix_tests" --gtest_filter='Undertakings*' | tee /dev/stderr | put matrix
"$build/bin/orv_matrix_tests" --gtest_filter='MatrixTable.Says*' | put tellings
"$build/bin/orv_process_tests" --gtest_filter='*SessionEnds*/0' | put ends
"$build/bin/orv_reliability_tests" --gtest_filter='Soak*' | put soak
