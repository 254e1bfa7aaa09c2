# A desktop of its own for the shipped program: a display in memory, a window manager, and the hand that clicks.
# To be sourced by bash scripts. Sets `work`, a folder that goes at the end.
scale=1  # what places on the screens are multiplied by

for tool in Xvfb openbox xdotool xprop import; do
    command -v "$tool" > /dev/null || missing+=" $tool"
done
[[ -z ${missing-} ]] || {
    printf '%s:%s: not found. As root: tools/packages display check\n' "$(basename "$0")" "$missing" >&2
    exit 1
}

work=$(mktemp -d)
tidy_up() {
    # shellcheck disable=SC2046  # one word a job
    kill $(jobs -p) 2> /dev/null || true
    wait
    rm -rf "$work"
}
trap tidy_up EXIT

# fail REASON: ends the script, and names the row of a table that it was in. The picture of the display stays in the build folder, and so does the program's log.
fail() {
    local kept
    kept=$(realpath --canonicalize-missing "${FB_KEEP_IN:-${BASH_SOURCE[0]%/*}/../build/end_to_end}")
    kept+=/$(basename "${story:-$0}")
    mkdir -p "${kept%/*}"
    import -window root "$kept.png" || true
    cp "$work/log" "$kept.log" || true
    printf '%s: %s%s. See %s.png and .log\n' "$(basename "${story:-$0}")" "${row:+$row: }" "$1" "$kept" >&2
    exit 1
}

# in_time COMMAND...: waits until the command succeeds.
in_time() {
    local end=$((SECONDS + 20))
    until "$@"; do
        ((SECONDS <= end)) || return 1
        sleep 0.02
    done
}

exec 3> "$work/display"
# Large enough for the largest screen at twice its size.
Xvfb -displayfd 3 -noreset -screen 0 1800x1400x24 2>> "$work/log" &
server=$!
in_time [ -s "$work/display" ] || fail 'Xvfb does not start'
DISPLAY=:$(< "$work/display")
export DISPLAY
openbox &>> "$work/log" &
managed() { [[ $(xprop -root _NET_SUPPORTING_WM_CHECK 2> /dev/null) == *'#'* ]]; }
in_time managed || fail 'openbox does not start'

# Waits until the program, the display and the window manager have nothing to do, as some looks in a row tell. So what
# the last key or click has set off is over, however slow the machine is.
busy() {
    local pid thread state
    for pid in $(jobs -pr); do
        for thread in "/proc/$pid/task"/*/stat; do
            read -r _ _ state _ 2> /dev/null < "$thread" || continue
            [[ $state == [RD] ]] && return
        done
    done
    return 1
}
settle() {
    local looks=0 end=$((SECONDS + 10))
    while ((looks < ${FB_LOOKS:-3} && SECONDS <= end)); do
        sleep 0.02
        if busy; then looks=0; else looks=$((looks + 1)); fi
    done
}

# window TITLE: waits for a window whose title starts so; sets $win.
window() {
    in_time shows "$1" || fail "no window \"$1\""
    settle
}
shows() { win=$(xdotool search --onlyvisible --name "^$1" 2> /dev/null | tail -n 1) && [[ -n $win ]]; }

gone() { in_time hides "$1" || fail "the window \"$1\" is still there"; }  # waits until it has closed
hides() { ! xdotool search --onlyvisible --name "^$1" &> /dev/null; }

at() { xdotool mousemove --window "$win" $(($1 * scale)) $(($2 * scale)); }
click() { at "$1" "$2"; xdotool click "${3:-1}"; settle; }
keys() { xdotool key "$@"; settle; }
text() { xdotool type --delay 4 "$1"; settle; }
choose() {  # TITLE FILE: answers a file dialog, and goes back to the window before it
    local before=$win
    window "$1"
    keys ctrl+a
    text "$2"
    keys Return
    gone "$1"
    win=$before
}
# shellcheck source=places.sh
. "${BASH_SOURCE[0]%/*}/places.sh"

shot() { import -window "$win" -crop "$1" +repage "$2"; }  # GEOMETRY FILE; uncompressed, so that equal means equal

# bring PROGRAM PROJECT: what `start` starts. The program writes beside itself, so it comes to stand in `work`, with a
# fresh copy of the project's sample game.
bring() {
    cp "$1" "$work/FB_Editor"
    cp -r "$2/game" "$work/Floebird"
    cp "$2/docs/FB_Editor.Help" "$work/"
}

launch() {  # [COMMAND...]: such as env, to be given the program
    "$@" "$work/FB_Editor" 2>> "$work/log" &
    editor=$!
}
start() {  # [COMMAND...]
    launch "$@"
    window 'FB_Editor V1.09'
}
