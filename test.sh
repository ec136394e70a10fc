#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds, and runs every test.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

scripts/install.sh test
cmake --preset release -DORV_BUILD_TESTS=ON
cmake --build --preset release
ctest --preset release "$@"
