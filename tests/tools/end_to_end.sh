#!/usr/bin/env bash
# end_to_end.sh VARNO-TICKETS SAMPLES: drives the command-line program as an operator would.
set -euo pipefail
tool="$(realpath "$1")"
samples="$(realpath "$2")"
cd "$(mktemp -d)"
trap 'rm -rf "$PWD"' EXIT
failed=0

# expect STATUS OUTPUT ARGUMENTS...: runs the program; both of its outputs count.
expect() {
    local status=0 output
    output="$("$tool" "${@:3}" 2>&1)" || status=$?
    [[ $status == "$1" && $output == "$2" ]] && return
    printf '%s\n  expected %s: %s\n  got %s: %s\n' "${*:3}" "$1" "$2" "$status" "$output"
    failed=1
}

wrote() {
    [[ $(cat "$1") == "$2" ]] && return
    printf '%s holds: %.80s\n' "$1" "$(cat "$1")"
    failed=1
}

# The image of a block that holds only ticket 212, "AB", bound to Print.
sound=":08D40041004210008000""00D4000000000000$(printf '0%.0s' {1..7964})0027F4"$'\r'
printf '{\\rtf1 AB}' >AB.VRT

expect 0 "" put block.VRB 212 ab.vrt
expect 0 "" bind block.VRB 212 p
wrote block.VRB "$sound"
expect 0 "212  P" list block.VRB
expect 0 "AB" show block.VRB 212
expect 0 "block.VRB: sound; tickets: 1, free words: 1991" check block.VRB

expect 1 "varno-tickets: ticket 212 exists already; --force replaces it" put block.VRB 212 AB.VRT
expect 1 "varno-tickets: a ticket number lies between 200 and 999" put block.VRB 199 AB.VRT
expect 1 "varno-tickets: none.VRT: No such file or directory" put block.VRB 300 none.VRT
expect 1 "varno-tickets: block.VRB: there is no ticket 300" delete block.VRB 300
expect 1 "varno-tickets: AB.VRT exists already; --force replaces it" extract block.VRB 212 AB.VRT
printf 'AB' >plain.VRT
"$tool" put block.VRB 300 plain.VRT 2>/dev/null && failed=1
printf '{\\rtf1 %s}' "$(printf 'A%.0s' {1..1990})" >big.VRT
expect 1 "varno-tickets: the ticket is too big: it has 1992 words, 1991 are free" \
    put block.VRB 300 big.VRT
wrote block.VRB "$sound"

expect 0 "" extract block.VRB 212 copy.VRT
expect 0 "" put -f block.VRB 212 copy.VRT
expect 0 "212" list block.VRB
expect 0 "" put block.VRB 300 copy.VRT
expect 0 "" bind block.VRB 212 Out
expect 0 "" bind block.VRB 300 out
expect 0 $'212\n300  O' list block.VRB
expect 0 "" bind block.VRB 300 none
expect 0 "" delete block.VRB 300
expect 0 "" bind block.VRB 212 PRINT
wrote block.VRB "$sound"

# A damaged block is shown, but changed only when told to.
printf '%s\n' "${sound/27F4/27F5}" >block.VRB
expect 1 $'block.VRB: The checksum is 27F5, but the memory gives 27F4.\nvarno-tickets: block.VRB: the block is damaged' check block.VRB
expect 0 "AB" show block.VRB 212
expect 1 "varno-tickets: block.VRB: the block is damaged (varno-tickets check tells how); --force changes it all the same" delete block.VRB 212
expect 0 "" bind -f block.VRB 212 Print
wrote block.VRB "$sound"
printf 'no block\r\n' >other.VRB
expect 1 "varno-tickets: other.VRB: this is no ticket block" put --force other.VRB 212 AB.VRT

expect 2 $'varno-tickets: there is no command "open"\nvarno-tickets --help tells more.' open block.VRB
expect 2 $'varno-tickets: "x" is no ticket number\nvarno-tickets --help tells more.' show block.VRB x
expect 2 $'varno-tickets: put takes BLOCK NUMBER TICKET\nvarno-tickets --help tells more.' put block.VRB 212

# The samples are what their source gives.
"$samples/make_samples.py" "$tool" .
for file in Plant.VRB Weighbridge.VRT Shop1.VRT; do
    cmp "$file" "$samples/$file" || failed=1
done
expect 0 "$(printf '200  I\n210  O\n212  P\n220\n300\n900')" list "$samples/Plant.VRB"
exit "$failed"
