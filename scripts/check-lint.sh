#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs clang-tidy 14 over the program's sources, without the tests and what is not built here: each file by itself,
# without a precompiled header, so that it also fails where a file does not include what it uses.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

cmake --preset lint >/dev/null
find src -name '*.cpp' ! -name '*_test.cpp' ! -name '*_windows.cpp' ! -name '*_none.cpp' ! -path 'src/testing/*' \
    ! -path 'src/benchmarks/*' ! -path 'src/fuzzing/*' ! -path 'src/matrix/*' | sort |
    xargs -P "$(nproc)" -n 2 clang-tidy-14 --quiet -p build/lint
echo "Lint is clean."
