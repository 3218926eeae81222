#!/usr/bin/env bash
# The road of road-test.sh under Wine: the Windows simulator with its window,
# Sidekin inside its "ViewMGR" window over DDE, driven by keys and clicks sent to
# an X server (Wine's top-level windows are X windows; windows inside another are
# not, so the main window is clicked through the host's). The host's own acts go
# in as control lines. The host's frame log must equal the Linux road's.
# Usage: road-test-windows.sh HOSTSIM_EXE SIDEKIN_EXE [PICTURES_DIR]
# Needs WINEPATH and QT_PLUGIN_PATH as scripts/windows/build.sh sets them.
set -uo pipefail
hostsim=$1
sidekin=$2
pictures=${3:-}
[ -z "$pictures" ] || mkdir -p "$pictures"
here=$(cd "$(dirname "$0")" && pwd)
wine_run=$here/../../scripts/windows/wine-run.sh
work=$(mktemp -d)
export ZENTROVAR_CONFIG_DIR="Z:${work//\//\\}\\config"
mkdir -p "$work/config"
unset SIDEKIN_LANG LANGUAGE
export LANG=C.UTF-8
windows() { echo "Z:${1//\//\\}"; }

pids=()
cleanup() {
    exec 4>&- 2>/dev/null
    for p in "${pids[@]}"; do kill "$p" 2>/dev/null; done
    wait 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT

road="road test (Windows)"
shot=road-test-windows-failure.png
# shellcheck source=road-common.sh
. "$here/road-common.sh"
control() { echo "$1" >&4; }

host="Zentrovar host simulator"
add="Zentrovar Sidekin - Add Entry"
edit="Zentrovar Sidekin - Edit Entry"
main=main  # the main window, inside the host's "ViewMGR" window
view_x=11  # where the host's layout puts "ViewMGR"
view_y=11

# click WINDOW X Y: a left click at a point of a window; main's points go through the host's.
click() {
    local w x=$2 y=$3
    if [ "$1" = "$main" ]; then
        w=$(window "$host")
        x=$((x + view_x))
        y=$((y + view_y))
    else
        w=$(window "$1")
    fi
    [ -n "$w" ] || fail "no window \"$1\" to click"
    xdotool mousemove --window "$w" "$x" "$y" click 1
    sleep 0.3
}
type_text() { xdotool type --delay 20 "$1"; }
# pick WINDOW X Y TEXT: opens a list box and picks the item that begins with TEXT.
pick() {
    click "$1" "$2" "$3"
    sleep 1
    type_text "$4"
    xdotool key Return
    sleep 0.4
}
picture() { [ -z "$pictures" ] || import -window root -crop 800x760+0+0 "$pictures/$1.png"; }

Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -noreset 3>"$work/display" 2>/dev/null &
pids+=($!)
wait_for 10 "Xvfb" grep -q . "$work/display"
export DISPLAY=:$(cat "$work/display")

mkfifo "$work/control"
exec 4<>"$work/control"
mkdir -p "$work/host/program"
"$wine_run" "$hostsim" --root "$(windows "$work/host")" --write-ini --run-seconds 3 \
    --log "$(windows "$work/frames.log")" --program-dir "$(windows "$work/host/program")" \
    --launch "$(windows "$sidekin")" <"$work/control" >"$work/host.out" 2>&1 &
pids+=($!)

wait_for 120 "the start box" has_window "VB DDE Error"
picture start-box
xdotool mousemove --window "$(window "VB DDE Error")" 20 20
xdotool key Return
wait_for 20 "the host's window" has_window "$host"
wait_for 20 "the hot link of ShowORQ\$" log_lines "ShowORQ\$" 2
sleep 3
no_window "^Zentrovar Sidekin \\(Rev" || fail "the main window is a window of its own, not inside ViewMGR"
picture main-window

# The operator, then two runs of a counter-named pair; the clicks reach the main
# window only where it sits inside the host's.
pick "$main" 309 88 Avery
wait_for 10 "the Add form" has_window "$add"
pick "$add" 285 34 "Solvent"
pick "$add" 160 70 FRONTSTD
wait_for 10 "the vial range question" logged "ORQGetInjectorVialRange\$(1)"
click "$add" 160 105
type_text "BLANK-1"
click "$add" 310 258
wait_for 10 "the first run" logged "BLKF000000"
click "$add" 160 105
xdotool key ctrl+a
type_text "BLANK-2"
click "$add" 310 258

pick "$add" 285 34 "Calibration"
pick "$add" 160 70 FRONTSTD
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
    xdotool mousemove --window "$(window "Data File Name")" 140 60
    type_text "$name"
    xdotool key Return
    wait_for 10 "the check of $name" logged "/$name\" For Output"
done
click "$add" 421 258
wait_for 10 "the Add form to close" no_window "$add"

select_row() {
    local w
    w=$(window "$host")
    xdotool mousemove --window "$w" $((400 + view_x)) $((180 + view_y)) click --repeat 5 4
    sleep 0.2
    click "$main" 239 $((134 + 30 * ($1 - 1)))
}
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

click "$main" 546 42
wait_for 20 "run 1 to start" logged "ORQ_HOST_START 1"
click "$main" 546 42
sleep 5
log_lines "ORQ_HOST_START 2" 1 && fail "run 2 started during the pause"
click "$main" 546 42
wait_for 20 "run 3 to start" logged "ORQ_HOST_START 3"
control "fault abort next"
wait_for 20 "run 4 to start" logged "ORQ_HOST_START 4"
sleep 5
picture table-done

# Wine does not draw a window placed inside another process's window (it takes
# input), so the rows' colours cannot be looked at: the host's data files tell.
for check in "BLKF000000 1" "CAL02 1" "CAL01 1" "CAL03 0"; do
    read -r name want <<<"$check"
    got=$(find "$work/host/data" -path "*/$name.d/run.txt" | wc -l)
    [ "$got" = "$want" ] || fail "the host has $got data files of run $name, not $want"
done

# The host ends the front end.
control "show 00"
wait_for 20 "Sidekin's end with status 0" grep -qF "ended with status 0" "$work/host.out"

tr -d '\r' <"$work/frames.log" |
    sed -E -e 's/"Avery[0-9]{6}"/"AveryYYMMDD"/g' -e "s|Z:$work/host/program/|<program>/|g" \
        >"$work/frames.txt"
[ -z "${SIDEKIN_ROAD_FRAMES:-}" ] || cp "$work/frames.txt" "$SIDEKIN_ROAD_FRAMES"
diff -u "$here/expected-frames.txt" "$work/frames.txt" ||
    fail "the host's frame log differs from the Linux road's (tests/road/expected-frames.txt)"
control quit
echo "road test (Windows): passed"
