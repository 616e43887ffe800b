#!/usr/bin/env bash
# scripts/install.sh USE...: installs the packages that scripts/packages.txt lists for these uses
# and that are not there yet. Needs no network, no rights and says nothing when all are there.
set -euo pipefail
list="$(dirname "${BASH_SOURCE[0]}")/packages.txt"

missing=()
while read -r use package _; do
    [[ " $* " == *" $use "* ]] || continue
    state="$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true)"
    [[ $state == installed* ]] || missing+=("$package")
done <"$list"
[[ ${#missing[@]} -gt 0 ]] || exit 0

asRoot=()
[[ $EUID -eq 0 ]] || asRoot=(sudo)
log="$(mktemp)"
trap 'rm -f "$log"' EXIT
echo "Installing: ${missing[*]}"
for step in "update" "install --yes --no-install-recommends ${missing[*]}"; do
    # shellcheck disable=SC2086  # the words of a step are separate arguments
    if ! "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get --quiet $step >"$log" 2>&1; then
        cat "$log" >&2
        # An outdated list of packages still installs; a failed installation does not.
        [[ $step == update ]] || exit 1
    fi
done
