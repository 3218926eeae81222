# What both roads share: failing with the screen and what the host saw, waiting,
# finding windows, reading the frame log. The road sets $work, $road (its name in
# messages) and $shot (the file name of the screen kept at a failure).

fail() {
    echo "$road: $*" >&2
    import -window root "$work/failure.png" 2>/dev/null &&
        cp "$work/failure.png" "${TMPDIR:-/tmp}/$shot" &&
        echo "$road: the screen at the failure is ${TMPDIR:-/tmp}/$shot" >&2
    echo "--- frames the host received" >&2
    tail -n 25 "$work/frames.log" >&2
    echo "--- the host's output" >&2
    tail -n 15 "$work/host.out" >&2
    exit 1
}

# wait_for SECONDS DESCRIPTION COMMAND...: polls COMMAND until it succeeds.
wait_for() {
    local seconds=$1 what=$2
    shift 2
    local until=$((SECONDS + seconds))
    while ! "$@" >/dev/null 2>&1; do
        ((SECONDS < until)) || fail "gave up waiting for $what"
        sleep 0.1
    done
}

window() { xdotool search --onlyvisible --name "$1" | head -n 1; }
has_window() { [ -n "$(window "$1")" ]; }
no_window() { [ -z "$(window "$1")" ]; }
logged() { grep -qF -- "$1" "$work/frames.log"; }
log_lines() { [ "$(grep -cF -- "$1" "$work/frames.log")" -ge "$2" ]; }
