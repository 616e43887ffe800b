#!/usr/bin/env bash
# scripts/await_window.sh TITLE: prints the number of the window whose title matches, once it is
# there. Fails after 30 seconds.
set -euo pipefail
for _ in {1..300}; do
    # The search fails now and then, when a window closes under it.
    window="$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1 || true)"
    [[ -z $window ]] || { echo "$window"; exit 0; }
    sleep 0.1
done
echo "There is no window \"$1\"." >&2
exit 1
