#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the Debian packages that are missing. Usage: scripts/install.sh run|test|ci
# Each kind includes the ones before it. Works as root and with sudo.
set -euo pipefail

run_packages=(g++ cmake ninja-build libcli11-dev qt6-base-dev qt6-serialport-dev qt6-svg-dev qt6-l10n-tools libqcustomplot-dev qcoro-qt6-dev libnetcdf-dev fonts-dejavu-core)
test_packages=(libgtest-dev libgmock-dev libice-dev libsm-dev libx11-dev dbus-daemon xvfb netcdf-bin python3-netcdf4 python3-pandas python3-xarray)
ci_packages=(clang-14 libclang-rt-14-dev clang-format-14 clang-tidy-14 appstream desktop-file-utils dpkg-dev lintian man-db systemd)

case "${1:-}" in
    run) wanted=("${run_packages[@]}") ;;
    test) wanted=("${run_packages[@]}" "${test_packages[@]}") ;;
    ci) wanted=("${run_packages[@]}" "${test_packages[@]}" "${ci_packages[@]}") ;;
    *) echo "usage: $0 run|test|ci" >&2; exit 2 ;;
esac

missing=()
for package in "${wanted[@]}"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)" = installed ] || missing+=("$package")
done
if [ ${#missing[@]} -eq 0 ]; then
    echo "All packages needed are installed."
    exit 0
fi

echo "Installing: ${missing[*]}"
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "Run this as root, or install sudo; these packages are needed: ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
"${as_root[@]}" apt-get update
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
