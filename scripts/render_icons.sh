#!/usr/bin/env bash
# Renders the icons of packaging/icons from their drawings in scalable/ in the usual sizes.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/install.sh icons
for drawing in packaging/icons/scalable/*/*.svg; do
    kind="$(basename "$(dirname "$drawing")")"
    for size in 16 22 24 32 48 64 128 256 512; do
        folder="packaging/icons/${size}x$size/$kind"
        mkdir -p "$folder"
        rsvg-convert --width "$size" --height "$size" "$drawing" \
            --output "$folder/$(basename "$drawing" .svg).png"
    done
done
