#!/usr/bin/env bash
# version_control.sh VARNO-TICKETS: blocks under git, set up as the manual says.
set -euo pipefail
built="$(dirname "$(realpath "$1")")"
PATH="$built:$PATH"
cd "$(mktemp -d)"
trap 'rm -rf "$PWD"' EXIT
export HOME="$PWD" GIT_CONFIG_NOSYSTEM=1 GIT_AUTHOR_NAME=a GIT_AUTHOR_EMAIL=a@b GIT_COMMITTER_NAME=a \
    GIT_COMMITTER_EMAIL=a@b
fail() { echo "$1"; exit 1; }
# A ticket of one line, as text.
ticket() { printf 'ticket %s\n|%s¬\n' "$1" "$2"; }
put() { ticket "$1" "$2" | varno-tickets put --force "${3:-shop.VRB}" "$1" -; }

git init --quiet --initial-branch=main
echo '*.VRB diff=varno merge=varno' >.gitattributes
git config diff.varno.textconv 'varno-tickets textconv'
git config merge.varno.driver 'varno-tickets merge %O %A %B'
cp "$built/Plant.VRB" shop.VRB
git add .
git commit --quiet --message=base

git checkout --quiet -b theirs
put 400 'their own'
put 900 'their totals'
put 400 'a block on both sides' new.VRB
git add new.VRB
git commit --quiet --all --message=theirs
git diff main shop.VRB | grep --quiet '^+|their totals¬$' || fail "The difference is not told in text."

git checkout --quiet main
put 500 'our own'
put 500 'a block on both sides' new.VRB
git add new.VRB
git commit --quiet --all --message=ours
git merge --quiet --no-edit theirs
[[ $(varno-tickets list shop.VRB | tr -s '\n ' ' ') == '200 I 210 O 212 P 220 300 400 500 900 ' ]] ||
    fail "The merged block has other tickets: $(varno-tickets list shop.VRB)"
varno-tickets check shop.VRB >/dev/null
[[ $(varno-tickets list new.VRB) == $'400\n500' ]] || fail "The new blocks are not one."

# Both sides change the same ticket.
git checkout --quiet -b other theirs
put 400 'of the others'
git commit --quiet --all --message=other
git checkout --quiet main
put 400 'of ours'
git commit --quiet --all --message=again
cp shop.VRB before
! git merge other >merged 2>&1 || fail "A conflict was merged."
grep --quiet 'ticket 400 was changed on both sides' merged || fail "$(cat merged)"
cmp before shop.VRB
git merge --abort

# A damaged block shows in the history as well.
printf ':damaged\r\n' >shop.VRB
git diff shop.VRB | grep --quiet '^+# It has 8 characters' || fail "The damage is not told."
