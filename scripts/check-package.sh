#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the Debian package and has it checked: by lintian, the validators of the desktop entry and the metainfo, and for
# what they do not know. Nothing is installed but the tools that do it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/install.sh ci
scripts/package.sh
package=$(ls build/package/*.deb)
id=org.orvhost.OrvHost

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
dpkg-deb --extract "$package" "$work"
share=$work/usr/share

fail() {
    echo "$package: $*" >&2
    exit 1
}

lintian --allow-root --fail-on error,warning "$package"
desktop-file-validate "$share/applications/$id.desktop"
appstreamcli validate --no-net "$share/metainfo/$id.metainfo.xml"

# One name for all: what the entries point to is there.
program=$(sed -n 's/^Exec=\([^ ]*\).*/\1/p' "$share/applications/$id.desktop")
[ -x "$work/usr/bin/$program" ] || fail "the desktop entry starts \"$program\", which is not in the package"
grep -q "^Icon=$id\$" "$share/applications/$id.desktop" || fail "the desktop entry has another icon"
grep -q "<launchable type=\"desktop-id\">$id.desktop<" "$share/metainfo/$id.metainfo.xml" ||
    fail "the metainfo starts another desktop entry"
strings --encoding=l "$work/usr/bin/orvhost" | grep -x "$id" >/dev/null || fail "the program gives its windows another name"
[ -f "$share/icons/hicolor/scalable/apps/$id.svg" ] || fail "the drawn icon is missing"
for size in 16 22 24 32 48 64 128 256 512; do
    icon=$share/icons/hicolor/${size}x$size/apps/$id.png
    [ "$(od -An -tu4 --endian=big -j16 -N8 "$icon" | xargs)" = "$size $size" ] || fail "$icon is not $size pixels wide"
done

# The manual pages know every option, and groff has nothing to say about them.
for program in orvhost orv orvsim; do
    page=$share/man/man1/$program.1.gz
    LC_ALL=C.UTF-8 man --warnings -l "$page" >"$work/$program.txt" 2>"$work/warnings"
    [ ! -s "$work/warnings" ] || fail "$program.1: $(cat "$work/warnings")"
    commands=$("$work/usr/bin/$program" --help | sed -n '/^Subcommands:/,$ s/^  \([a-z]\+\) .*/\1/p')
    for command in "" $commands; do
        # shellcheck disable=SC2086 # the empty one is none
        "$work/usr/bin/$program" $command --help
    done | grep -oE -- '[ ,]--[a-z0-9-]+' | tr -d , | sort -u >"$work/options"
    [ -s "$work/options" ] || fail "$program --help lists no options"
    while read -r option; do
        grep -q -- "$option" "$work/$program.txt" || fail "the manual page of $program does not know $option"
    done <"$work/options"
done
echo "The package is right."
