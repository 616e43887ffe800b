#!/usr/bin/env bash
# scripts/virtual_display.sh COMMAND...: runs a command on a screen and a session bus of its own,
# with a window manager, and ends them with it. The display number is whichever is free.
set -euo pipefail

scratch="$(mktemp -d)"
servers=()
finish() {
    for ((i = ${#servers[@]} - 1; i >= 0; --i)); do
        kill "${servers[i]}" 2>/dev/null || true
        wait "${servers[i]}" 2>/dev/null || true
    done
    rm -rf "$scratch"
}
trap finish EXIT

# Waits up to 20 seconds until a command succeeds.
waitUntil() {
    for _ in {1..400}; do
        "$@" >/dev/null 2>&1 && return
        sleep 0.05
    done
    echo "virtual display: gave up waiting for: $*" >&2
    return 1
}

Xvfb -displayfd 3 -screen 0 1920x1440x24 -nolisten tcp 3>"$scratch/display" 2>"$scratch/xvfb.log" &
servers+=($!)
waitUntil grep -q . "$scratch/display" || { cat "$scratch/xvfb.log" >&2; exit 1; }
DISPLAY=":$(cat "$scratch/display")"
export DISPLAY
unset WAYLAND_DISPLAY XAUTHORITY

openbox 2>"$scratch/openbox.log" &
servers+=($!)
waitUntil xdotool get_num_desktops

dbus-run-session -- "$@"
