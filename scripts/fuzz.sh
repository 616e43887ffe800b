#!/usr/bin/env bash
# scripts/fuzz.sh SECONDS [TARGET...]: runs each fuzz target for so long, all of them unless some are
# named. Inputs that led further stay in build/fuzz/corpus/TARGET for the next time; a finding is
# kept in build/fuzz/findings and ends the target.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
root="$PWD"
seconds="$1"
shift
if [[ $# -eq 0 ]]; then
    mapfile -t targets < <(cd fuzz && basename --suffix=.cpp --multiple -- *.cpp)
    set -- "${targets[@]}"
fi

scripts/install.sh build fuzz
scripts/build.sh fuzz fuzzers
mkdir -p build/fuzz/findings
[[ ! -d /dev/shm ]] || export TMPDIR=/dev/shm
status=0
for target in "$@"; do
    corpus="$root/build/fuzz/corpus/$target"
    mkdir -p "$corpus"
    options=(-max_total_time="$seconds" -timeout=10 -artifact_prefix="$root/build/fuzz/findings/$target-")
    [[ ! -f fuzz/$target.dict ]] || options+=(-dict="fuzz/$target.dict")
    log="build/fuzz/$target.log"
    if "build/fuzz/fuzz_$target" "${options[@]}" -print_final_stats=1 "$corpus" >"$log" 2>&1; then
        result=ok
    else
        result="FAILED, see $log"
        status=1
    fi
    echo "$target: $(grep --only-matching '^#[0-9]*.*ft: [0-9]*' "$log" | tail --lines=1) $result"
done
exit "$status"
