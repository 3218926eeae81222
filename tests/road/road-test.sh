#!/usr/bin/env bash
# The road as an operator meets it: the real host simulator with its window,
# Sidekin inside it, driven only by keys and clicks sent to an X server.
# Usage: road-test.sh HOSTSIM SIDEKIN [PICTURES_DIR]
# With PICTURES_DIR the screens along the way are kept there as PNG files.
set -uo pipefail
hostsim=$1
sidekin=$2
pictures=${3:-}
[ -z "$pictures" ] || mkdir -p "$pictures"
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
print_out=${SIDEKIN_PRINT_OUT:-/var/spool/sidekin-pdf}
export QT_QPA_PLATFORM=xcb
export XDG_RUNTIME_DIR=$work/runtime
export XDG_STATE_HOME=$work/state  # the run table journal stays in the test folder
mkdir -m 700 "$XDG_RUNTIME_DIR"
export ZENTROVAR_CONFIG_DIR=$work/config
mkdir -p "$ZENTROVAR_CONFIG_DIR"
unset SIDEKIN_LANG LANGUAGE
export LANG=C.UTF-8

pids=()
cleanup() {
    for p in "${pids[@]}"; do kill "$p" 2>/dev/null; done
    wait 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT

road="road test"
shot=road-test-failure.png
# shellcheck source=road-common.sh
. "$here/road-common.sh"

# click WINDOW_TITLE X Y: a left click at a point of a window, as the pointer goes.
click() {
    local w
    w=$(window "$1") && [ -n "$w" ] || fail "no window \"$1\" to click"
    xdotool mousemove --window "$w" "$2" "$3" click 1
    sleep 0.3
}
# Typing goes to the window under the pointer's focus, as the operator types.
type_text() { xdotool type --delay 20 "$1"; }
# pick WINDOW X Y ITEM_X ITEM_Y: opens a list box and picks an item of its list.
pick() {
    click "$1" "$2" "$3"
    sleep 0.5
    xdotool mousemove "$4" "$5" click 1
    sleep 0.4
}
picture() { [ -z "$pictures" ] || import -window root -crop 800x760+0+0 "$pictures/$1.png"; }
# The colour of one pixel of the screen, as "r,g,b".
pixel() {
    import -window root -crop "1x1+$1+$2" -depth 8 txt:- | tail -n 1 |
        sed -E 's/.*\(([0-9]+),([0-9]+),([0-9]+).*/\1,\2,\3/'
}

# A display of our own.
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -noreset 3>"$work/display" 2>/dev/null &
pids+=($!)
wait_for 10 "Xvfb" grep -q . "$work/display"
export DISPLAY=:$(cat "$work/display")

"$hostsim" --root "$work/host" --write-ini --run-seconds 3 --log "$work/frames.log" \
    --program-dir "$work/host/program" --launch "$sidekin" </dev/null >"$work/host.out" 2>&1 &
pids+=($!)

main="^Zentrovar Sidekin \\(Rev"  # names are patterns
host="Zentrovar host simulator"
add="Zentrovar Sidekin - Add Entry"
edit="Zentrovar Sidekin - Edit Entry"

# The box of every start, then the main window inside the host's.
wait_for 20 "the start box" has_window "VB DDE Error"
picture start-box
xdotool mousemove --window "$(window "VB DDE Error")" 20 20
xdotool key Return
wait_for 10 "the main window" has_window "$main"
host_area=$(xdotool search --name "^ViewMGR")
xwininfo -children -id "$host_area" | grep -qF "\"Zentrovar Sidekin (Rev" ||
    fail "the main window is not inside the host's ViewMGR window"
picture main-window

# The operator, then two runs of a counter-named pair.
pick "$main" 309 88 258 100
wait_for 10 "the Add form" has_window "$add"
pick "$add" 285 34 145 35
pick "$add" 160 70 135 71
wait_for 10 "the vial range question" logged "ORQGetInjectorVialRange\$(1)"
click "$add" 160 105
type_text "BLANK-1"
click "$add" 310 258
wait_for 10 "the first run" logged "BLKF000000"
click "$add" 160 105
xdotool key ctrl+a
type_text "BLANK-2"
click "$add" 310 258

# A manually named pair of three injections: one name prompt for each further one.
pick "$add" 285 34 145 57
pick "$add" 160 70 135 71
wait_for 10 "the second vial range question" log_lines "ORQGetInjectorVialRange\$(1)" 2
click "$add" 160 105
type_text "CAL-A"
click "$add" 405 118
type_text "1.5"
click "$add" 405 147
type_text "0.5"
picture add-form
click "$add" 310 258
for name in CAL02 CAL03; do
    wait_for 10 "the name prompt for $name" has_window "Data File Name"
    [ "$name" = CAL02 ] && picture name-prompt
    xdotool mousemove --window "$(window "Data File Name")" 140 60
    type_text "$name"
    xdotool key Return
    wait_for 10 "the check of $name" logged "/$name\" For Output"
done
click "$add" 421 258
wait_for 10 "the Add form to close" no_window "$add"

# Rows now: BLANK-1, BLANK-2, CAL01, CAL02, CAL03. The grid shows four at a time.
# select_row N: the grid scrolled to its top with the wheel, then a click on row N.
select_row() {
    local w
    w=$(window "$main")
    xdotool mousemove --window "$w" 400 180 click --repeat 5 4
    sleep 0.2
    click "$main" 239 $((134 + 30 * ($1 - 1)))
}
# Edit row 1, move row 4 (CAL02) up, delete row 2 (BLANK-2).
select_row 1
click "$main" 208 270
wait_for 10 "the Edit form" has_window "$edit"
click "$edit" 162 102
xdotool key ctrl+a
type_text "BLANK-1B"
picture edit-form
click "$edit" 313 255
click "$edit" 421 255
wait_for 10 "the Edit form to close" no_window "$edit"
select_row 4
click "$main" 32 172
select_row 2
click "$main" 434 270
picture run-table

# A pause during run 1, then on; the trainer has run 4 abort, which ends the walk.
click "$main" 546 42
wait_for 15 "run 1 to start" logged "ORQ_HOST_START 1"
click "$main" 546 42
picture pausing
sleep 5
log_lines "ORQ_HOST_START 2" 1 && fail "run 2 started during the pause"
picture paused
click "$main" 546 42
wait_for 15 "run 3 to start" logged "ORQ_HOST_START 3"
click "$host" 632 376
wait_for 15 "run 4 to start" logged "ORQ_HOST_START 4"
sleep 5
picture table-done

for check in "1 255,255,192 completed" "3 255,255,192 completed" "4 255,128,128 aborted"; do
    read -r row want meaning <<<"$check"
    got=$(pixel 98 $((137 + 30 * (row - 1))))
    [ "$got" = "$want" ] || fail "row $row is coloured $got, not as a run $meaning"
done

# The table's own menu, under the right button: recovery, saved tables, worklists.
xdotool mousemove --window "$(window "$main")" 300 170 click 3
sleep 0.6
picture table-menu
xdotool key Escape
sleep 0.3

# Print to the default printer, a CUPS PDF queue.
# Other tests may print at the same time: ours is the new PDF that names our runs.
ls "$print_out" >"$work/pdfs-before" 2>/dev/null
click "$main" 660 270
ours() {
    local f
    for f in $(ls "$print_out" | grep -vxFf "$work/pdfs-before"); do
        pdftotext -layout "$print_out/$f" "$work/printed.txt" 2>/dev/null &&
            grep -qF BLANK-1B "$work/printed.txt" && return 0
    done
    return 1
}
wait_for 90 "the printed PDF" ours
text=$(cat "$work/printed.txt")
for word in "Operator :: Avery" CAL02 CAL01 CAL03; do
    grep -qF -- "$word" <<<"$text" || fail "the printed table lacks \"$word\""
done
grep -qF BLANK-2 <<<"$text" && fail "the printed table still has the deleted run"

# The host ends the front end.
click "$host" 718 404
wait_for 10 "Sidekin to end" no_window "$main"
wait_for 10 "Sidekin's end with status 0" grep -qF "ended with status 0" "$work/host.out"

# What the host was told, in order: only these start commands, with these files.
starts=$(grep -E "ORQ_SetRunTableVars|ORQ_PrepareSingleRun|ORQ_HOST_START" "$work/frames.log" |
    cut -f5)
diff -u "$here/expected-starts.txt" <(sed -E 's/"Avery[0-9]{6}"/"AveryYYMMDD"/' <<<"$starts") ||
    fail "the host received other start commands"
# The whole conversation, frame by frame; the Windows road must see the same.
sed -E -e 's/"Avery[0-9]{6}"/"AveryYYMMDD"/g' -e "s|$work/host/program/|<program>/|g" \
    "$work/frames.log" >"$work/frames.txt"
[ -z "${SIDEKIN_ROAD_FRAMES:-}" ] || cp "$work/frames.txt" "$SIDEKIN_ROAD_FRAMES"
diff -u "$here/expected-frames.txt" "$work/frames.txt" ||
    fail "the host's frame log differs from tests/road/expected-frames.txt"
echo "road test: passed"
