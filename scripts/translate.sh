#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Brings the translations up to the texts of the program: new texts come in without a translation, texts that are gone go.
# Then tells what is not translated. Usage: scripts/translate.sh [--check]
# --check changes nothing, and fails if a text is missing, is there too much or has no translation.
set -euo pipefail
cd "$(dirname "$0")/.."

tools=$(qtpaths6 --query QT_INSTALL_BINS 2>/dev/null || qmake6 -query QT_INSTALL_BINS)
scratch=$(mktemp -d)
trap 'rm -r "$scratch"' EXIT
folder=translations
if [ "${1:-}" = --check ]; then
    folder=$scratch
    cp translations/*.ts "$folder"
fi
find src -name '*.cpp' -o -name '*.h' | grep -v -e _test -e '^src/testing/' -e '^src/fuzzing/' -e '^src/benchmarks/' |
    sort > "$scratch/files"
status=0
for code in de es fr; do
    "$tools/lupdate" -silent -locations none -no-obsolete -no-sort -source-language en -target-language "$code" \
        -I src @"$scratch/files" -ts "$folder/orvhost_$code.ts"
    left=$(grep -c 'type="unfinished"' "$folder/orvhost_$code.ts" || true)
    echo "$code: $left texts without a translation"
    if [ "${1:-}" = --check ]; then
        [ "$left" -eq 0 ] || status=1
        if ! cmp -s "translations/orvhost_$code.ts" "$folder/orvhost_$code.ts"; then
            echo "translations/orvhost_$code.ts does not have the program's texts; run scripts/translate.sh"
            status=1
        fi
    fi
done
exit $status
