#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Takes a picture of each page and dialog from the running program, on simulated instruments.
#
#   scripts/pictures.sh            into docs/pictures/, where the guide shows them
#   scripts/pictures.sh FOLDER     for looking: light and dark, at 1, 1.5 and 2 times the size, each in a folder of its
#                                  own in FOLDER, with a contact sheet where ImageMagick is there
#   scripts/pictures.sh FOLDER --size 800x600     the same, with the main window of that size
#   scripts/pictures.sh FOLDER --language de      the same, in that language
#
# Needs a build; BUILD names it (build/release unless told). No display is needed.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
program=${BUILD:-build/release}/bin/orvpictures
if [ ! -x "$program" ]; then
    echo "There is no $program. Build it: cmake --preset release && ninja -C build/release orvpictures" >&2
    exit 1
fi
# A screen on which windows of twice the size have room.
screen=$(mktemp)
trap 'rm -f "$screen"' EXIT
cat >"$screen" <<'END'
{"screens": [{"name": "large", "x": 0, "y": 0, "width": 3840, "height": 2160,
              "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}
END
export QT_QPA_PLATFORM=offscreen:configfile=$screen QT_LOGGING_RULES='qt.qpa.*=false'
if [ $# -eq 0 ]; then
    "$program" docs/pictures
    exit
fi
folder=$1
shift
for scale in 1 1.5 2; do
    for colours in light dark; do
        option=
        [ "$colours" = light ] || option=--dark
        # shellcheck disable=SC2086
        QT_SCALE_FACTOR=$scale "$program" $option "$@" "$folder/$colours-$scale"
        if command -v montage >/dev/null; then
            montage "$folder/$colours-$scale"/*.png -tile 4x -geometry '800x600>+8+8' "$folder/$colours-$scale.png"
        fi
    done
done
