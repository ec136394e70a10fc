#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the Debian package, checks it, installs it into a bare Debian 12 in a temporary folder, where nothing but the
# package's own dependencies come with it, and starts it there as its menu entry does, without a display.
# Needs root, the network, debootstrap and about 1 GB; takes some minutes.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

if [ "$(id -u)" -ne 0 ] || ! command -v debootstrap >/dev/null; then
    echo "Run this as root, with debootstrap installed." >&2
    exit 1
fi
scripts/check-package.sh
package=$(ls build/package/*.deb)

root=$(mktemp -d)
program=
finish() {
    [ -z "$program" ] || kill "$program" 2>/dev/null || true
    rm -rf --one-file-system "$root"
}
trap finish EXIT
fail() {
    echo "Failed: $*" >&2
    exit 1
}
# as_technician COMMAND...: what somebody who has just logged in would do
as_technician() {
    chroot --userspec=technician:technician "$root" env -i HOME=/home/technician PATH=/usr/bin:/bin LC_ALL=C.UTF-8 \
        QT_QPA_PLATFORM=offscreen "$@"
}

echo "A bare system in $root"
chmod 755 "$root"
debootstrap --variant=minbase bookworm "$root" >"$root.log" 2>&1 || fail "debootstrap: $(tail -3 "$root.log")"
rm -f "$root.log"
printf '#!/bin/sh\nexit 101\n' >"$root/usr/sbin/policy-rc.d" # no service is started there
chmod 755 "$root/usr/sbin/policy-rc.d"
cp "$package" "$root/orvhost.deb"
in_root() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }

echo "Installing"
in_root apt-get update -qq
in_root apt-get install -y -qq --no-install-recommends /orvhost.deb >"$root/install.log" 2>&1 ||
    fail "the package cannot be installed: $(tail -5 "$root/install.log")"
in_root useradd --create-home technician
as_technician orvhost --version
as_technician orvsim --version

start=$(sed -n 's/^Exec=//p' "$root/usr/share/applications/org.orvhost.OrvHost.desktop")
echo "Starting \"$start\""
documents=$root/home/technician/Documents
# The entry has no arguments in quotes; it is started, as from a menu, in a folder where nothing can be written.
# shellcheck disable=SC2086
as_technician $start &
program=$!
for _ in {1..300}; do
    [ ! -e "$documents/log.ohp" ] || break
    kill -0 "$program" 2>/dev/null || fail "the program has ended"
    sleep 0.1
done
[ -e "$documents/log.ohp" ] || fail "there is no log.ohp in the Documents folder"
sleep 1
kill -0 "$program" 2>/dev/null || fail "the program has ended"
kill "$program"
wait "$program" || true
program=

echo "The main job, unattended"
# shellcheck disable=SC2086
as_technician $start --com1 'sim:trx?rate=50&baud=0' --demo shown >"$root/demo.log" 2>&1 ||
    fail "the unattended run: $(cat "$root/demo.log")"
for file in log.ohp Orvtemp.tmp sheet.txt page-1.png; do
    [ -s "$documents/shown/$file" ] || fail "the unattended run left no $file"
done
ls -l "$documents" "$documents/shown"

echo "Removing"
in_root apt-get purge -y -qq orvhost >/dev/null 2>&1 || fail "the package cannot be removed"
left=$(find "$root/usr" \( -iname '*orvhost*' -o -iname 'orvsim*' \) -print)
[ -z "$left" ] || fail "removed, the package leaves $left"
echo "The package installs, starts from its menu entry and goes again without a trace."
