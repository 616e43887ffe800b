#!/usr/bin/env bash
# scripts/check_hardening.sh PROGRAM: fails unless the program is position independent, read-only
# after linking, bound at start, and built with guarded stacks.
set -euo pipefail
headers="$(readelf --wide --file-header --program-headers --dynamic --symbols --dyn-syms "$1")"
require() {
    grep --quiet --extended-regexp "$2" <<<"$headers" || { echo "$1: $3" >&2; exit 1; }
}
require "$1" '^ *Type: +DYN' "is not position independent"
require "$1" 'GNU_RELRO' "has no read-only relocations"
require "$1" 'BIND_NOW|FLAGS.* NOW' "is not bound at start"
require "$1" '__stack_chk_fail' "has no guarded stacks"
! grep --quiet 'GNU_STACK.* RWE' <<<"$headers" || { echo "$1: has an executable stack" >&2; exit 1; }
