# A desktop of its own for the shipped program: a display in memory, a window manager, and the hand that clicks.
# To be sourced by bash scripts. Sets `work`, a folder that goes at the end.

work=$(mktemp -d)
tidy_up() {
    # shellcheck disable=SC2046  # one word a job
    kill $(jobs -p) 2> /dev/null || true
    wait
    rm -rf "$work"
}
trap tidy_up EXIT

exec 3> "$work/display"
Xvfb -displayfd 3 -noreset -screen 0 1280x1024x24 2> /dev/null &
for _ in {1..100}; do [[ -s $work/display ]] && break; sleep 0.1; done
DISPLAY=:$(< "$work/display")
export DISPLAY
openbox &> /dev/null &
for _ in {1..100}; do xprop -root _NET_SUPPORTING_WM_CHECK 2> /dev/null | grep -q '#' && break; sleep 0.1; done

fail() {
    import -window root "${FB_SCREENSHOT:-$work/failed.png}" || true
    printf '%s: %s\n' "$(basename "$0")" "$1" >&2
    exit 1
}

# window TITLE: waits for a window whose title starts so; sets $win.
window() {
    for _ in {1..100}; do
        win=$(xdotool search --onlyvisible --name "^$1" 2> /dev/null | tail -n 1) && [[ -n $win ]] && sleep 0.3 && return
        sleep 0.1
    done
    fail "no window \"$1\""
}

gone() {  # waits until the window with the title has closed
    for _ in {1..100}; do
        xdotool search --onlyvisible --name "^$1" > /dev/null 2>&1 || return 0
        sleep 0.1
    done
    fail "the window \"$1\" is still there"
}

settle() { sleep 0.25; }
at() { xdotool mousemove --window "$win" "$1" "$2"; }
click() { at "$1" "$2"; xdotool click "${3:-1}"; settle; }
keys() { xdotool key "$@"; settle; }
text() { xdotool type --delay 4 "$1"; settle; }
fill() { click "$1" "$2"; keys ctrl+a; text "$3"; }         # a text box
choose() {  # TITLE FILE: answers a file dialog, and goes back to the window before it
    local before=$win
    window "$1"
    keys ctrl+a
    text "$2"
    keys Return
    gone "$1"
    win=$before
}
cell() { click $((10 + 34 * $1 + 16)) $((80 + 34 * $2 + 16)) "${3:-1}"; }  # column and row of the level's view
shot() { import -window "$win" -crop "$1" +repage "$2"; }  # GEOMETRY FILE; uncompressed, so that equal means equal

# bring PROGRAM PROJECT: what `start` starts. The program writes beside itself, so it comes to stand in `work`, with a
# fresh copy of the project's sample game.
bring() {
    cp "$1" "$work/FB_Editor"
    cp -r "$2/game" "$work/Floebird"
    cp "$2/docs/FB_Editor.Help" "$work/"
}

start() {
    "$work/FB_Editor" 2> /dev/null &
    editor=$!
    window 'FB_Editor V1.09'
}
