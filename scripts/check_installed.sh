#!/usr/bin/env bash
# scripts/check_installed.sh PREFIX: starts the installed program by its link on a sample block, and
# fails unless its window, its catalogues and its tutorial are found, and unless it can be practised
# with. Needs a display.
set -euo pipefail
prefix="$1"

HOME="$(mktemp -d)"
export HOME
unset XDG_CONFIG_HOME XDG_DATA_HOME
program=
finish() {
    [[ -z $program ]] || kill "$program" 2>/dev/null || true
    wait
    rm -rf "$HOME"
}
trap finish EXIT

await() { "$(dirname "${BASH_SOURCE[0]}")/await_window.sh" "$1" >/dev/null; }

"$prefix/bin/varno-ticket-formatter" \
    "$prefix/share/doc/varno-ticket-formatter/examples/Plant.VRB" &
program=$!
await '^VarnoTicketFormatter 1\.0\.2$'
sleep 0.5
# A missing catalogue would bring a message box first, a missing tutorial no window.
xdotool key alt+c
await '^Varno Control Codes$'
xdotool key Escape
sleep 0.5
xdotool key alt+h t
await '^Tutorial$'
finds() {
    "$prefix/bin/varno-tickets" "$1" "$prefix/share/doc/varno-ticket-formatter/examples/Plant.VRB" 212 |
        grep --quiet "$2" || { echo "varno-tickets finds no $3." >&2; exit 1; }
}
# By the command of the desktop action.
"$prefix/bin/varno-practice" &
practice=$!
await '^Varno Indicator'
kill "$practice"
wait "$practice"
finds show 'GROSS WEIGHT' catalogue
finds print '12480 kg' 'code effects'
