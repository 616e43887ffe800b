#!/usr/bin/env bash
# scripts/build.sh PRESET [TARGET]: configures and builds a preset into build/PRESET. Shows the
# compiler's words only when something is wrong.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
preset="$1"

mkdir -p "build/$preset"
log="build/$preset/build.log"
echo "Building build/$preset"
if ! { cmake --preset "$preset" && cmake --build --preset "$preset" --target "${2:-all}"; } >"$log" 2>&1; then
    grep --invert-match '^\[[0-9/]*\] \(Building\|Linking\|Automatic\|Generating\)' "$log" >&2
    exit 1
fi
