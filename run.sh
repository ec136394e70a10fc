#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds, and starts the program; without arguments on two simulated instruments.
# Without a display it does the main job unattended and leaves sheet, logs and pictures in demo-output/.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

"$root/scripts/install.sh" run
(
    cd "$root"
    cmake --preset release -DORV_BUILD_TESTS=OFF
    cmake --build --preset release --target orvhost orvsim
)

arguments=("$@")
if [ $# -eq 0 ]; then
    arguments=(--com1 sim:trx --com2 sim:glow)
fi
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    export QT_QPA_PLATFORM=offscreen
    case " ${arguments[*]} " in
        *" --demo"* | *" --help "* | *" --version "* | *" -h "* | *" -v "*) ;;
        *)
            echo "There is no display: doing the main job unattended, into demo-output/."
            arguments+=(--demo "$root/demo-output")
            ;;
    esac
fi
exec "$root/build/release/bin/orvhost" "${arguments[@]}"
