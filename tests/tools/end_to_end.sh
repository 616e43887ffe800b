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

expect 3 "varno-tickets: ticket 212 exists already; --force replaces it" put block.VRB 212 AB.VRT
long="$(printf 'x%.0s' {1..256})"
expect 3 "varno-tickets: none.VRT: No such file or directory" put block.VRB 300 none.VRT
expect 3 "varno-tickets: $long: File name too long" extract block.VRB 212 "$long"
expect 3 "varno-tickets: block.VRB: there is no ticket 300" delete block.VRB 300
expect 3 "varno-tickets: AB.VRT exists already; --force replaces it" extract block.VRB 212 AB.VRT
printf 'AB' >plain.VRT
expect 1 "varno-tickets: plain.VRT: The file is not a rich text (RTF) document." put block.VRB 300 plain.VRT
"$tool" text block.VRB >whole.txt
expect 1 "varno-tickets: whole.txt:1:1: This is the text of a whole block; one ticket is wanted." \
    put block.VRB 300 whole.txt
printf '{\\rtf1 %s}' "$(printf 'A%.0s' {1..1990})" >big.VRT
expect 3 "varno-tickets: the ticket is too big: it has 1992 words, 1991 are free" \
    put block.VRB 300 big.VRT
(ulimit -f 4 && expect 3 "varno-tickets: block.VRB: File too large" delete block.VRB 212; exit "$failed") || failed=1
wrote block.VRB "$sound"

expect 0 "" extract block.VRB 212 copy.VRT
expect 0 "block.VRB: Print no longer prints ticket 212" put -f block.VRB 212 copy.VRT
expect 0 "212" list block.VRB
expect 0 "" put block.VRB 300 copy.VRT
expect 0 "" bind block.VRB 212 Out
expect 0 "block.VRB: Out no longer prints ticket 212" bind block.VRB 300 out
expect 0 $'212\n300  O' list block.VRB
expect 0 "block.VRB: Out no longer prints ticket 300" bind block.VRB 300 none
expect 0 "" delete block.VRB 300
expect 0 "" bind block.VRB 212 PRINT
wrote block.VRB "$sound"

# "-" is standard input, or output; "--" ends the options.
expect 0 "-: sound; tickets: 1, free words: 1991" check -- - <block.VRB
expect 0 "212  S" list - < <("$tool" bind /dev/stdin 212 Start <block.VRB 2>/dev/null)
expect 0 "" put none.VRB 212 - <AB.VRT
expect 0 "$(cat copy.VRT)" extract --catalogues=none none.VRB 212 /dev/stdout
expect 2 $'varno-tickets: block and ticket cannot both come from standard input\nvarno-tickets --help tells more.' put - 212 -

# Of several at once none is lost, whether the block is there already or not.
for number in {300..307}; do
    "$tool" put many.VRB "$number" AB.VRT &
done
wait
expect 0 "$(printf '%s\n' {300..307})" list many.VRB
# A command that makes or merges a block waits too, and sees what came meanwhile. In its lock on $1,
# the file or while there is none its folder, many.VRB becomes the file $2.
meanwhile() {
    exec 9<"$1"
    flock 9
    "$tool" "${@:3}" 2>said 9<&- &
    sleep 0.3
    cp many.VRB "$2"
    exec 9<&-
    wait
}
meanwhile . late.VRB new late.VRB
wrote said "varno-tickets: late.VRB exists already; --force replaces it"
"$tool" new base.VRB
cp base.VRB ours.VRB
meanwhile ours.VRB ours.VRB merge base.VRB ours.VRB block.VRB
expect 0 "$(printf '%s\n' '212  P' {300..307})" list ours.VRB

# What is changed is written in capitals as a whole.
tr A-F a-f <block.VRB >small.VRB
expect 0 "small.VRB: Print no longer prints ticket 212" bind small.VRB 212 none
expect 0 "small.VRB: sound; tickets: 1, free words: 1991" check small.VRB
# What nobody can hear is not said into the block, which is written in place for its second name.
ln small.VRB second.VRB
"$tool" bind small.VRB 212 Print
"$tool" bind small.VRB 212 none 2>&-
expect 0 "second.VRB: sound; tickets: 1, free words: 1991" check second.VRB

# On paper, by the effects of a folder and the user's over them; the simulated indicator prints the same.
export XDG_DATA_HOME="$PWD"
mkdir VarnoTicketFormatter effects
printf '046 nothing\nP001 8 "4711" left\nP015 "kg"\n' >'effects/Varno Code Effects.txt'
printf 'P015 "t"\nwidth 0\n' >'VarnoTicketFormatter/Varno Code Effects.txt'
printf '{\\rtf1{\\colortbl;;\\red255;\\blue255;}\\cf2 C46C17\\cf3 P1P15P2\\cf1 <&\\u172?}' >codes.VRT
expect 0 "" put paper.VRB 200 codes.VRT
expect 0 "" bind paper.VRB 200 Print
"$tool" print --catalogues=effects paper.VRB 200 >printed 2>faults
wrote printed '[C017]4711    t[P002]<&'
wrote faults "varno-tickets: $PWD/VarnoTicketFormatter/Varno Code Effects.txt: line 2: width takes a number of columns from 8 to 255"
printf 'P\nquit\n' | "$(dirname "$tool")/varno-indicator" --ports-folder ports --catalogues effects \
    --paper paper.txt paper.VRB >/dev/null
wrote paper.txt "$(cat printed)"
rm -r VarnoTicketFormatter
printf 'P015=lbs\nP001=123456789\n' >values
expect 0 "varno-tickets: values: line 2: the value is longer than 8 columns
[C017]47↵
11    lb↵
s[P002]<↵
&" print --catalogues=effects --values values --width 8 paper.VRB 200
expect 0 "" print --catalogues=effects --svg picture.svg paper.VRB 200
grep --quiet '>&lt;&amp;<' picture.svg || failed=1
expect 3 "varno-tickets: picture.svg exists already; --force replaces it" \
    print --catalogues=effects --svg picture.svg paper.VRB 200
expect 2 $'varno-tickets: "10000" is no width: paper has 8 to 255 columns\nvarno-tickets --help tells more.' \
    print --width=10000 paper.VRB 200

# As text, one ticket or all, and back, with remarks in it.
expect 0 $'Varno ticket block\norder 212:P\nticket 212\n|AB' text block.VRB
{ printf '# %0300000d\n' 1; "$tool" text block.VRB; } >block.txt
expect 0 "" build block.txt again.VRB
wrote again.VRB "$sound"
expect 3 "varno-tickets: again.VRB exists already; --force replaces it" build block.txt again.VRB
printf '|C{C017}¬' | sed '1s/^/# 1 line\nticket 999\n/' >212.txt
expect 0 "again.VRB: Print no longer prints ticket 212" put --force again.VRB 212 212.txt
expect 0 $'ticket 212\n|C{C017 BOLD ON}¬' text --comments --catalogues="$samples" again.VRB 212
expect 1 $'ticket 212 differs:\n  - AB\n  + C{C017}¬\nkey Print prints 212 in block.txt, none in again.VRB' \
    diff --catalogues=none block.txt again.VRB
expect 0 "" diff block.VRB <(cat block.txt)
expect 1 "varno-tickets: 212.txt:2:1: The text of a block begins with the line \"Varno ticket block\"." \
    build 212.txt new.VRB
expect 0 "" new new.VRB
expect 3 "varno-tickets: new.VRB exists already; --force replaces it" new new.VRB

# What is sound but suspect; codes whose effects are unknown have no width.
printf 'ticket %s\n|%s' 212 '{C017}{C099}{P777}{W1800}{A27}0123456789¬
|{P001}{P002}{C020}{C099}x¬
|{C021}{C022}0123456789+¬' >212.txt
expect 0 "" put suspect.VRB 212 212.txt
expect 0 "" put suspect.VRB 300 AB.VRT
"$tool" text suspect.VRB | sed '2s/.*/order 212:PI 300\nfill 0001/' >suspect.txt
expect 0 "" build -f suspect.txt suspect.VRB
cp "$samples"/*Codes.txt effects
printf '%s\n' 'width 10' '017 bold on' '019 double width on' '020 double width off' '021 inverse on' \
    '022 inverse off' 'P001 11 "4711"' >'effects/Varno Code Effects.txt'
suspects='suspect.VRB: Ticket 212: no catalogue has C099 and P777.
suspect.VRB: Ticket 212: W1800 is no code.
suspect.VRB: Ticket 212: lines wider than the 10 columns of the paper: 2 and 3.
suspect.VRB: Ticket 212 switches on and never off: bold.
suspect.VRB: Ticket 212 is bound to Print and In.
suspect.VRB: Keys without a ticket: Start and Out; tickets without a key: 300.
suspect.VRB: Words are left over behind the keys: 1.'
expect 1 "$suspects
varno-tickets: suspect.VRB: the block is sound but suspect" check --strict --catalogues=effects suspect.VRB
expect 1 "$(grep --invert-match wider <<<"$suspects")
varno-tickets: suspect.VRB: the block is sound but suspect" \
    check --strict --catalogues=effects --width=12 suspect.VRB
expect 3 "varno-tickets: none/Varno Control Codes.txt: No such file or directory" \
    check --strict --catalogues=none suspect.VRB
expect 0 "" build block.txt clean.VRB
expect 0 "clean.VRB: sound; tickets: 1, free words: 1991" \
    check --strict --catalogues=effects clean.VRB

# Several at once: each is done whole or refused, and the worst is the exit code.
expect 0 "" new empty.VRB
printf ':' >torn.VRB
several=(clean.VRB empty.VRB missing.VRB suspect.VRB torn.VRB)
expect 3 "
clean.VRB    done
empty.VRB    done
missing.VRB  refused  No such file or directory
suspect.VRB  done
torn.VRB     fault    this is no whole ticket block
varno-tickets: not all blocks are done" put -n 212 - "${several[@]}" --keep-key <AB.VRT
expect 0 $'clean.VRB:\n212  P\nsuspect.VRB:\n212  P I\n300\n\nclean.VRB    done\nsuspect.VRB  done' \
    list clean.VRB suspect.VRB
expect 3 $'{"block":"clean.VRB","tickets":[{"number":212,"keys":["Print"]}]}\nvarno-tickets: missing.VRB: No such file or directory\nvarno-tickets: not all blocks are done' \
    list --json clean.VRB missing.VRB
expect 1 "torn.VRB: $(printf '%s\ntorn.VRB: ' 'It has 1 characters; a block has 8007.' 'It has no end marker behind its tickets.')It must be one line ended by CR LF, with nothing behind it.

clean.VRB  done     sound; tickets: 1, free words: 1991
torn.VRB   fault    the block is damaged
varno-tickets: not all blocks are done" check clean.VRB torn.VRB
expect 0 "suspect.VRB: Print no longer prints ticket 212
suspect.VRB: In no longer prints ticket 212

empty.VRB    done
suspect.VRB  done" bind -n 212 none empty.VRB suspect.VRB
expect 3 "
empty.VRB    refused  there is no ticket 300
suspect.VRB  done
varno-tickets: not all blocks are done" delete -n 300 empty.VRB suspect.VRB
expect 2 $'varno-tickets: standard input is no block among several\nvarno-tickets --help tells more.' \
    list clean.VRB -

# A damaged block is read, but changed only when told to.
printf '%s\n' "${sound/27F4/27F5}" >block.VRB
damaged="varno-tickets: block.VRB: the block is damaged"
expect 1 $'block.VRB: The checksum is 27F5, but the memory gives 27F4.\n'"$damaged" check block.VRB
damaged+=" (varno-tickets check tells how)"
expect 1 $'AB\n'"$damaged" show block.VRB 212
expect 1 "$damaged" delete block.VRB 212
expect 0 "" bind -f block.VRB 212 Print
wrote block.VRB "$sound"
printf ':no block\r\n' >other.VRB
expect 1 "varno-tickets: other.VRB: this is no whole ticket block" put --force other.VRB 212 AB.VRT
expect 1 "varno-tickets: $samples/Plant.txt: this is no ticket block" list "$samples/Plant.txt"

usage=$'\nvarno-tickets --help tells more.'
expect 2 "varno-tickets: there is no command \"open\"$usage" open block.VRB
expect 2 "varno-tickets: \"x\" is no ticket number$usage" show block.VRB x
expect 2 "varno-tickets: a ticket number lies between 200 and 999$usage" put block.VRB 199 AB.VRT
expect 2 "varno-tickets: put takes BLOCK NUMBER TICKET$usage" put block.VRB 212
expect 2 "varno-tickets: put --number takes TICKET BLOCK...$usage" put -n 212 AB.VRT
expect 2 "varno-tickets: list takes no --svg$usage" list block.VRB --svg=x
expect 2 "varno-tickets: --width takes COLUMNS$usage" print block.VRB 212 --width
expect 2 "varno-tickets: --force takes nothing$usage" --force=x list block.VRB
expect 2 "varno-tickets: --backup takes FOLDER$usage" receive block.VRB --backup ""
expect 2 "varno-tickets: there is no option \"-v\"$usage" -v

# The history: what is there, what a copy holds, and back into a file, whose content is kept too.
export TZ=XYZ-2 XDG_STATE_HOME="$PWD/state"
history="$PWD/state/VarnoTicketFormatter/history"
expect 0 "" history list
env -u XDG_STATE_HOME -u HOME "$tool" history 2>said || [[ $? == 3 ]] || failed=1
wrote said "varno-tickets: There is no home folder to keep copies in."
mkdir -p "$history/20211130T000000000Z_open_folder.VRB"
uploaded=20211123T073849123Z_uploaded-COM3_Shop.VRB
cp clean.VRB "$history/$uploaded"
head -c 4000 clean.VRB >"$history/20211123T220000000Z_upload-COM3_Größe.VRB"
cp AB.VRT "$history/20211122T100000000Z_close_.VRT"
cp AB.VRT "$history/20211122T100000000Z_close_AB.VRT"
cp AB.VRT "$history/notes.VRT"
ln -s "$uploaded" "$history/20211201T000000000Z_open_link.VRB"
expect 0 "20211123T220000000Z               2021-11-24 00:00:00  block Größe  Before an upload from COM3  damaged  It has 4000 characters; a block has 8007.
20211123T073849123Z               2021-11-23 09:38:49  block Shop   After an upload from COM3   sound    tickets: 212
20211122T100000000Z_close_AB.VRT  2021-11-22 12:00:00  ticket AB    Closed without saving       sound
20211122T100000000Z_close_.VRT    2021-11-22 12:00:00  ticket       Closed without saving       sound" history
expect 0 "20211123T073849123Z  2021-11-23 09:38:49  block Shop  After an upload from COM3  sound    tickets: 212" \
    history list com3 "SHOP after"
expect 0 '{"copies":[{"copy":"'"$uploaded"'","when":"2021-11-23 09:38:49","what":"After an upload from COM3","kind":"block","name":"Shop","sound":true,"faults":[],"tickets":[212]}]}' \
    history list Shop --json
expect 0 $'block Shop\n2021-11-23 09:38:49\nAfter an upload from COM3\ntickets: 212\nsound' history show 20211123T07
expect 1 $'block Größe\n2021-11-24 00:00:00\nBefore an upload from COM3\ntickets: 212\nIt has 4000 characters; a block has 8007.\nvarno-tickets: latest: the copy is damaged' \
    history show latest clean.VRB
expect 1 "key Print prints 212 in 20211123T07, none in empty.VRB" history show 20211123T07 empty.VRB
expect 0 $'ticket\n2021-11-22 12:00:00\nClosed without saving\nsound\n\nAB' history show 20211122T100000000Z_close_.VRT
expect 1 $'  - AB\n  + C{C017}¬' history show 20211122T100000000Z_close_A <(printf 'ticket 212\n|C{C017}¬') \
    --catalogues=none
expect 3 'varno-tickets: "20211122" means 2 copies, such as 20211122T100000000Z_close_AB.VRT and 20211122T100000000Z_close_.VRT' \
    history restore 20211122 new.VRT
expect 3 'varno-tickets: there is no copy "2025"; varno-tickets history list tells which there are' history show 2025
expect 2 "varno-tickets: there is no command \"history sohw\"$usage" history sohw 2025
expect 0 "" history restore 20211123T07 restored.VRB
cmp restored.VRB clean.VRB || failed=1
expect 3 "varno-tickets: empty.VRB exists already; --force replaces it" history restore 20211123T07 empty.VRB
cp empty.VRB before.VRB
(ulimit -f 4; ! "$tool" history restore -f 20211122T100000000Z_close_A empty.VRB) 2>said || failed=1
grep --quiet 'empty.VRB is not replaced: what it holds cannot be kept. .*: File too large' said || failed=1
cmp empty.VRB before.VRB || failed=1
expect 0 "" history restore --force 20211123T07 empty.VRB
cmp empty.VRB clean.VRB || failed=1
expect 0 "" history show latest before.VRB
tr : ';' <clean.VRB >hurt.VRB
expect 0 "" history restore --force 20211123T07 hurt.VRB
[[ $("$tool" history list hurt) == *' block hurt '* ]] || failed=1
expect 1 "$(head -c 4000 clean.VRB)varno-tickets: -: written, but the copy is damaged" history restore 20211123T22 -
expect 3 "varno-tickets: AB.VRT: Not a directory" history list --backup=AB.VRT
# Whatever a name is made of, the terminal is left alone, and what is told means the copy again.
mkdir odd
cp clean.VRB $'odd/20211123T073849123Z_save_\x80.VRB'
cp clean.VRB $'odd/20211123T073849123Z_upload-%1B[31m_\xC2\x9B%0D.VRB'
expect 0 "20211123T073849123Z_upload-%1B[31m_�%0D.VRB  2021-11-23 09:38:49  block ��  Before an upload from �[31m  sound    tickets: 212
20211123T073849123Z_save_�.VRB               2021-11-23 09:38:49  block �   Before a file was replaced   sound    tickets: 212" \
    history list --backup=odd
[[ $("$tool" history list --json --backup=odd) == *'"copy":"20211123T073849123Z_save_�.VRB"'* ]] || failed=1
for copy in 20211123T073849123Z_save_� 20211123T073849123Z_upload-%1B[31m_�%0D.VRB; do
    "$tool" history restore "$copy" - --backup=odd | cmp - clean.VRB || failed=1
done

# The sample block is what its source gives, and gives its source again.
plant="$(dirname "$tool")/Plant.VRB"
expect 0 "$(grep --invert-match '^#\|^$' "$samples/Plant.txt")" text "$plant"
cp "$plant" plant.VRB
expect 0 "" put --keep-key plant.VRB 300 "$(dirname "$tool")/Shop1.VRT"
expect 0 "" put --keep-key plant.VRB 212 "$(dirname "$tool")/Weighbridge.VRT"
expect 0 "" diff plant.VRB "$plant"
expect 0 "$(printf '200  I\n210  O\n212  P\n220\n300\n900')" list "$plant"
exit "$failed"
