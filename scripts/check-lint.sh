#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs clang-tidy 14 over the program's sources, without the tests and what is not built here. Needs a configured
# build/release.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

find src -name '*.cpp' ! -name '*_test.cpp' ! -name '*_windows.cpp' ! -name '*_none.cpp' ! -path 'src/testing/*' ! -path 'src/benchmarks/*' | sort |
    xargs -P "$(nproc)" -n 4 clang-tidy-14 --quiet -p build/release
echo "Lint is clean."
