#!/usr/bin/env bash
# Takes a picture of every window at 100 % and 200 %, light and dark, into docs/screenshots, and the
# pictures of the tutorial into tutorial/pictures. Works on a display of its own.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build="$PWD/build/release"
gallery="$PWD/docs/screenshots"
pictures="$PWD/tutorial/pictures"

if [[ ${1:-} != --inside ]]; then
    scripts/install.sh build display
    scripts/build.sh release installed
    exec scripts/virtual_display.sh "${BASH_SOURCE[0]}" --inside
fi

scratch="$(mktemp -d)"
running=()
endAll() {
    for process in "${running[@]}"; do
        kill "$process" 2>/dev/null || true
        wait "$process" 2>/dev/null || true
    done
    running=()
}
trap 'endAll; rm -rf "$scratch"' EXIT
mkdir -p "$gallery" "$pictures"

# A dark desktop: the window toolkit reads the colours of KDE without its help.
darkColours() {
    local dark=42,46,50 darker=27,30,32 button=49,54,59 light=252,252,252 accent=61,174,233
    printf '[Colors:%s]\nBackgroundNormal=%s\nForegroundNormal=%s\n' \
        Window $dark $light View $darker $light Button $button $light \
        Selection $accent $light Tooltip $button $light
    printf '[Colors:View]\nForegroundLink=%s\n' $accent
}

# Until two pictures of the screen, taken shortly after each other, are the same.
settle() {
    local now before=
    for _ in {1..25}; do
        now="$(import -window root rgb:- | md5sum)"
        [[ $now != "$before" ]] || return 0
        before="$now"
        sleep 0.1
    done
}

# Waits until a window of this title is open, and remembers it.
window=
await() {
    window="$(scripts/await_window.sh "$1")"
    settle
}
press() { xdotool key --delay 60 "$@"; settle; }

rowHeight=240  # of the list, in twips
# Mouse on the main window, at a place of its layout in twips.
point() {
    # At its minimum size the window is 4910 twips high below its menu bar.
    local height menu
    height="$(xdotool getwindowgeometry --shell "$main" | sed -n 's/^HEIGHT=//p')"
    menu=$((height - 4910 * scale / 15))
    xdotool mousemove --window "$main" $(($1 * scale / 15)) $(($2 * scale / 15 + menu))
}
click() { point "$1" "$2"; xdotool click --repeat "${3:-1}" --delay 60 1; settle; }

# shoot NAME [tutorial]: into the gallery; the light one at 200 % is also the tutorial's.
shoot() {
    local file="$gallery/$1-$theme-${scale}00.png"
    import -window "$window" -strip "PNG8:$file"
    if [[ ${2:-} == tutorial && $theme == light && $scale == 2 ]]; then
        convert "$file" -units PixelsPerInch -density 192 "PNG8:$pictures/$1.png"
    fi
    echo "${file#"$PWD"/}"
}

strip() {
    local width=$((300 * scale)) height=$((10 * scale)) left=$((100 * scale)) top=$((28 * scale))
    import -window "$main" -crop "${width}x$height+$left+$top" rgb:- | md5sum
}
# Until the status strip shows text, or shows none.
awaitText() { for _ in {1..100}; do [[ $(strip) == "$emptyStrip" ]] || return 0; done; }
awaitNoText() { for _ in {1..600}; do [[ $(strip) != "$emptyStrip" ]] || return 0; done; }

# Starts the indicator and the program as a user who uses both for the first time.
start() {
    export HOME="$scratch/home-$theme-$scale"
    mkdir -p "$HOME/.config"
    local desktop=()
    if [[ $theme == dark ]]; then
        darkColours >"$HOME/.config/kdeglobals"
        desktop=(XDG_CURRENT_DESKTOP=KDE KDE_FULL_SESSION=true KDE_SESSION_VERSION=5)
    fi
    mkfifo "$HOME/panel"
    "$build/varno-indicator" samples/Plant.VRB <>"$HOME/panel" >"$HOME/indicator" &
    running+=($!)
    until grep --quiet COM "$HOME/indicator"; do sleep 0.05; done
    local port
    port="$(sed -n 's/.*COM\([0-9]*\).*/\1/p' "$HOME/indicator" | head -n 1)"
    printf '[Communications]\nCOM=%s\nSettings="9600,n,8,1"\n' "$port" \
        >"$HOME/.config/VarnoTicketFormatter.ini"
    env "${desktop[@]}" QT_SCALE_FACTOR="$scale" "$build/VarnoTicketFormatter" samples/Plant.VRB &
    running+=($!)
    await '^VarnoTicketFormatter '
    main="$window"
    emptyStrip="$(strip)"
}

# Tells the indicator to do something.
panel() { echo "$1" >"$HOME/panel"; }

pictureAll() {
    # Ticket 212 is the third row, bound to the key Print.
    click 6700 800
    press Home Down Down
    click 5990 2020
    press ctrl+Home
    click 6700 "$((700 + 2 * rowHeight))"
    shoot main tutorial
    click 2000 4000
    press Home

    press alt+c
    await '^Varno Control Codes$'
    xdotool type 017
    settle
    shoot control-codes tutorial
    press Escape
    press alt+p
    await '^Varno Print Codes$'
    xdotool type 011
    settle
    shoot print-codes
    press Escape
    press alt+a
    await '^ASCII Codes$'
    xdotool type 27
    settle
    shoot ascii-codes tutorial
    press Escape

    press alt+v s
    await '^COM Port Parameters$'
    shoot serial-port tutorial
    press Escape
    press alt+h a
    await '^Varno Ticket Formatter$'
    shoot about
    press Return
    press alt+h t
    await '^Tutorial$'
    shoot tutorial
    press Escape

    panel 'speed 9600'
    press alt+v u
    await '^Warning$'
    shoot warning
    press Return
    window="$main"
    awaitText
    shoot upload tutorial
    panel 77
    sleep 3
    shoot receiving
    awaitNoText
    press alt+t
    await '^Terminal Window$'
    panel 77
    sleep 1
    shoot terminal tutorial
    press alt+e
}

for scale in 1 2; do
    for theme in light dark; do
        start
        pictureAll
        endAll
    done
done
