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

# Starts a server that writes its address to file descriptor 3; the address is then in `address`.
address=
serve() {
    : >"$scratch/address"
    "$@" 3>"$scratch/address" >"$scratch/log" 2>&1 &
    servers+=($!)
    waitUntil grep -q . "$scratch/address" || { cat "$scratch/log" >&2; exit 1; }
    address="$(cat "$scratch/address")"
}

# -r: no key repeats itself while the machine is busy.
serve Xvfb -displayfd 3 -screen 0 1920x1440x24 -nolisten tcp -r
export DISPLAY=":$address"
serve dbus-daemon --session --nofork --nosyslog --print-address=3
export DBUS_SESSION_BUS_ADDRESS="$address"
export XDG_RUNTIME_DIR="$scratch/runtime"
mkdir --mode=700 "$XDG_RUNTIME_DIR"
unset WAYLAND_DISPLAY XAUTHORITY

openbox >"$scratch/log" 2>&1 &
servers+=($!)
waitUntil xdotool get_num_desktops

"$@"
