#!/usr/bin/env bash
# Takes a picture of every window at 100 % and 200 %, light and dark, into docs/screenshots, and the
# pictures of the tutorial into tutorial/pictures. Works on a display of its own.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/install.sh build display pictures
scripts/build.sh release installed
exec scripts/virtual_display.sh /usr/bin/python3 -B scripts/screenshots.py build/release
