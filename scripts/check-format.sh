#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Fails if clang-format 14 would change a source file. With --fix it changes them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

mode=(--dry-run --Werror)
[ "${1:-}" != --fix ] || mode=(-i)
find src -name '*.h' -o -name '*.cpp' | sort | xargs clang-format-14 "${mode[@]}"
echo "Format is right."
