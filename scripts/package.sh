#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds, and makes the Debian package, whose path it prints last: build/package/orvhost_*.deb.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/install.sh run
if ! command -v dpkg-shlibdeps >/dev/null; then
    echo "Please install dpkg-dev: it finds out which libraries the package depends on." >&2
    exit 1
fi
cmake --preset release -DORV_BUILD_TESTS=OFF
cmake --build --preset release --target orvhost orvsim
rm -f build/package/*.deb
cpack --config build/release/CPackConfig.cmake -B build/package
ls build/package/*.deb
