#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Draws the program's icon in the sizes that desktops ask for, from packaging/icon/orvhost.svg. Needs librsvg2-bin
# and imagemagick. The pictures are kept with the sources: run this when the drawing has changed.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../packaging/icon"

for size in 16 22 24 32 48 64 128 256 512; do
    rsvg-convert --width "$size" --height "$size" --output "orvhost-$size.png" orvhost.svg
done
convert orvhost-{16,24,32,48,64,256}.png orvhost.ico
